// SPDX-License-Identifier: MIT
#include "app/child_windows.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>

#include "tests/app/window_bench.h"
#include "widgets/twips.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::WindowBench;

QRect Twips(int left, int top, int width, int height) {
    return {PixelsFromTwips(left), PixelsFromTwips(top), PixelsFromTwips(width),
            PixelsFromTwips(height)};
}

void Close(QMdiSubWindow* window) {
    window->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(ChildWindows, ComeBackToTheirPlaceFromAnyState) {
    struct Case {
        const char* what;
        void (*make)(QMdiSubWindow*);
        bool isNew;
    };
    const Case cases[] = {
        {"moved", [](QMdiSubWindow* w) { w->setGeometry(300, 300, 200, 100); }, false},
        {"minimised", [](QMdiSubWindow* w) { w->showMinimized(); }, false},
        {"maximised", [](QMdiSubWindow* w) { w->showMaximized(); }, false},
        {"closed", [](QMdiSubWindow* w) { Close(w); }, true},
    };
    struct Window {
        const char* name;
        const char* item;
        QRect place;
    };
    const Window windows[] = {
        {"frmProgram", "mmuOpenProgramWindow", Twips(50, 50, 6900, 4000)},
        {"frmEEprom", "mmuOpenEEpromWindow", Twips(50, 4100, 6900, 2000)},
        {"frmSetting", "mmuOpenSettingWindow", Twips(7000, 50, 4100, 6050)},
    };
    for (const Case& c : cases) {
        for (const bool all : {true, false}) {
            WindowBench b;
            b.Start();
            for (const Window& w : windows) {
                c.make(b.Child(w.name));
                if (!all) {
                    b.Choose(w.item);
                    EXPECT_EQ(b.program.Window().Area().activeSubWindow(), b.Child(w.name));
                }
            }
            if (all) {
                b.Choose("mmuWindowReDrow");
            }
            for (const Window& w : windows) {
                EXPECT_EQ(b.Child(w.name)->geometry(), w.place) << c.what << w.name;
            }
            auto* box = b.Find<QPlainTextEdit>("txtPrg");
            EXPECT_TRUE(b.Find<QComboBox>("Combo_device")->isVisible()) << c.what;
            EXPECT_EQ(box->toPlainText() == u"Program Memoey", c.isNew) << c.what;
            b.Click("Clear");  // whoever shows a listing brings its window up to date
            EXPECT_TRUE(box->toPlainText().startsWith(u"0000: FFFF"));
        }
    }
}

const char* const kGeometryKeys[] = {"MainLeft", "MainTop",   "MainWidth", "MainHeight", "PgmLeft",
                                     "PgmTop",   "PgmWidth",  "PgmHeight", "EEpLeft",    "EEpTop",
                                     "EEpWidth", "EEpHeight", "SetLeft",   "SetTop"};

/// Each key another whole number of pixels.
QMap<QString, QString> SomePlaces() {
    QMap<QString, QString> places;
    int pixels = 200;
    for (const char* key : kGeometryKeys) {
        pixels += 17;
        places[QString::fromLatin1(key)] = QString::number(pixels * 15);
    }
    return places;
}

TEST(ChildWindows, EveryPlaceIsTakenAndStored) {
    const QMap<QString, QString> places = SomePlaces();
    const auto start = [&places](WindowBench& b) {
        b.settings.values.insert(places);
        b.Start();
        for (const char* key : kGeometryKeys) {
            b.settings.values.remove(QString::fromLatin1(key));
        }
    };
    struct Case {
        const char* what;
        void (*before)(WindowBench&);
        int stored;
    };
    const Case cases[] = {
        {"as they are", [](WindowBench&) {}, 14},
        {"children minimised",
         [](WindowBench& b) {
             for (const char* name : {"frmProgram", "frmEEprom", "frmSetting"}) {
                 b.Child(name)->showMinimized();
             }
         },
         14},
        {"one closed", [](WindowBench& b) { Close(b.Child("frmEEprom")); }, 10},
        {"settings closed", [](WindowBench& b) { b.Child("frmSetting")->close(); }, 12},
        {"all minimised", [](WindowBench& b) { b.program.Window().showMinimized(); }, 0},
    };
    for (const Case& c : cases) {
        for (const bool exit : {true, false}) {
            WindowBench b;
            start(b);
            EXPECT_EQ(b.Child("frmProgram")->geometry(), QRect(285, 302, 319, 336));
            EXPECT_EQ(QRect(b.program.Window().pos(), b.program.Window().size()),
                      QRect(217, 234, 251, 268));
            c.before(b);
            exit ? b.Choose("mnuFileExit") : b.program.StoreLayout();
            int stored = 0;
            for (const char* key : kGeometryKeys) {
                const QString name = QString::fromLatin1(key);
                stored += b.settings.values.contains(name) ? 1 : 0;
                EXPECT_EQ(b.settings.values.value(name, places[name]), places[name])
                    << c.what << ' ' << key;
            }
            EXPECT_EQ(stored, c.stored) << c.what;
            EXPECT_EQ(b.ListingFiles().isEmpty(), exit) << c.what;
        }
    }
}

TEST(ChildWindows, AnyStoredValueIsTakenOrReadsAsTheDefault) {
    WindowBench b;
    b.settings.values[u"MainLeft"_s] = u"-30000"_s;
    b.settings.values[u"EEpTop"_s] = u"somewhere"_s;
    b.Start();
    EXPECT_EQ(b.program.Window().x(), -2000);
    EXPECT_EQ(b.program.Window().size(), QSize(753, 527));
    EXPECT_EQ(b.Child("frmEEprom")->geometry(), Twips(50, 4100, 6900, 2000));
}

TEST(ChildWindows, TheWindowMenuListsThem) {
    WindowBench b;
    b.Start();
    auto* menu = b.Find<QMenu>("mnuWindow");
    const auto listed = [&b, menu] {
        Q_EMIT menu->aboutToShow();
        QStringList texts;
        for (const QAction* item : menu->actions().mid(
                 menu->actions().lastIndexOf(b.Item("mnuWindowArrangeIcons")) + 2)) {
            texts << item->text() + (item->isChecked() ? u" *"_s : QString());
        }
        return texts.join(u'|').toStdString();
    };
    b.Child("frmProgram")->setWindowTitle(u"Program : a&b.hex"_s);
    b.Child("frmEEprom")->showMinimized();
    b.program.Window().Area().setActiveSubWindow(b.Child("frmSetting"));
    EXPECT_EQ(listed(),
              u"&1 AVRシリーズISPプログラマ　設定ウインドウ *|&2 Program : a&&b.hex|"
              "&3 EEPROMデータメモリ"_s.toStdString());
    menu->actions().last()->trigger();
    EXPECT_FALSE(b.Child("frmEEprom")->isMinimized());
    EXPECT_EQ(b.program.Window().Area().activeSubWindow(), b.Child("frmEEprom"));
    Close(b.Child("frmEEprom"));
    menu->actions().last()->trigger();  // an assistive tool may press what is not shown any more
    b.Child("frmSetting")->close();
    EXPECT_EQ(listed(), "&1 Program : a&&b.hex");
}

TEST(ChildWindows, AListingStaysWhereItIsScrolledAndLeavesTheFocus) {
    WindowBench b(2);
    b.Start();
    auto* box = b.Find<QPlainTextEdit>("txtPrg");
    box->setFocus();
    box->verticalScrollBar()->setValue(40);
    b.Find<QLineEdit>("txtAddress")->setText(u"140"_s);
    b.Find<QRadioButton>("OptionProgram")->setChecked(true);
    b.Find<QLineEdit>("txtData")->setText(u"1234"_s);
    b.Click("CmdWrite");
    EXPECT_TRUE(box->toPlainText().contains(u"0140: 1234"_s));
    EXPECT_EQ(box->verticalScrollBar()->value(), 40);
    EXPECT_EQ(b.program.Window().focusWidget(), box);
    Close(b.Child("frmProgram"));
    auto* list = b.Find<QComboBox>("Combo_device");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);  // the closed listing comes back
    EXPECT_EQ(b.program.Window().focusWidget(), list);
    EXPECT_TRUE(b.Child("frmProgram")->isVisible());
    EXPECT_EQ(b.settings.values[u"device"_s], u"3"_s);
    for (const char* name : {"Combo_device", "Combo_LockBit", "Combo_FSTRT"}) {
        auto* other = b.Find<QComboBox>(name);
        b.Find<QWidget>("CmdRead")->setFocus();
        const int before = other->currentIndex();
        QWheelEvent notch(QPointF(5, 5), other->mapToGlobal(QPointF(5, 5)), {}, {0, 120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(other, &notch);
        EXPECT_EQ(other->currentIndex(), before) << name;
    }
}

TEST(ChildWindows, TheDefaultLayoutShowsEverythingInAnyFont) {
    const QFont before = QApplication::font();
    for (const int points : {8, 11, 14}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        WindowBench b(4);
        b.Start();
        QMdiArea& area = b.program.Window().Area();
        EXPECT_FALSE(area.verticalScrollBar()->isVisible()) << points;
        EXPECT_FALSE(area.horizontalScrollBar()->isVisible()) << points;
        QMenuBar* menus = b.program.Window().menuBar();
        EXPECT_GE(menus->width(), menus->actionGeometry(menus->actions().last()).right());
        EXPECT_FALSE(b.Find<QWidget>("qt_menubar_ext_button")->isVisible());
        EXPECT_FALSE(b.Find<QWidget>("qt_toolbar_ext_button")->isVisible());
        for (const QLabel* label : b.Child("frmSetting")->widget()->findChildren<QLabel*>()) {
            EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
        }
    }
    QApplication::setFont(before);
}

TEST(ChildWindows, AMessageStandsOverTheMainWindow) {
    for (const bool closed : {false, true}) {
        WindowBench b;
        b.Start();
        if (closed) {
            Close(b.Child("frmProgram"));
        }
        b.Find<QLineEdit>("txtAddress")->setText(u"G"_s);
        const auto* message = b.Find<QDialog>("frmMsg");
        ASSERT_NE(message, nullptr);
        const QRect inside(b.program.Window().centralWidget()->mapToGlobal(QPoint()),
                           b.program.Window().centralWidget()->size());
        EXPECT_TRUE(inside.contains(message->geometry())) << closed;
        EXPECT_EQ(message->y() - inside.y(), (inside.height() - 120) / 2);
    }
}

}  // namespace
}  // namespace tolvex
