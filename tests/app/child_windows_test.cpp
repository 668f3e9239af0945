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
    const std::tuple<const char*, const char*, QRect> windows[] = {
        {"frmProgram", "mmuOpenProgramWindow", Twips(50, 50, 6900, 4000)},
        {"frmEEprom", "mmuOpenEEpromWindow", Twips(50, 4100, 6900, 2000)},
        {"frmSetting", "mmuOpenSettingWindow", Twips(7000, 50, 4100, 6050)}};
    const std::function<void(QMdiSubWindow*)> states[] = {
        [](QMdiSubWindow* w) { w->setGeometry(300, 300, 200, 100); },
        [](QMdiSubWindow* w) { w->showMinimized(); }, [](QMdiSubWindow* w) { w->showMaximized(); },
        Close};
    for (int state = 0; state < 4; ++state) {
        for (const bool all : {true, false}) {
            WindowBench b;
            b.Start();
            for (const auto& [name, item, place] : windows) {
                states[state](b.Child(name));
                if (!all) {
                    b.Choose(item);
                    EXPECT_EQ(b.program.Window().Area().activeSubWindow(), b.Child(name));
                }
            }
            if (all) {
                b.Choose("mmuWindowReDrow");
            }
            for (const auto& [name, item, place] : windows) {
                EXPECT_EQ(b.Child(name)->geometry(), place) << state << name;
            }
            auto* box = b.Find<QPlainTextEdit>("txtPrg");
            EXPECT_TRUE(b.Find<QComboBox>("Combo_device")->isVisible()) << state;
            EXPECT_EQ(box->toPlainText() == u"Program Memoey", state == 3);
            b.Click("Clear");  // whoever shows a listing brings its window up to date
            EXPECT_TRUE(box->toPlainText().startsWith(u"0000: FFFF"));
        }
    }
}

constexpr const char* kGeometryKeys[] = {
    "MainLeft",  "MainTop", "MainWidth", "MainHeight", "PgmLeft",   "PgmTop",  "PgmWidth",
    "PgmHeight", "EEpLeft", "EEpTop",    "EEpWidth",   "EEpHeight", "SetLeft", "SetTop"};

TEST(ChildWindows, EveryPlaceIsTakenAndStored) {
    QMap<QString, QString> places;  // each key another whole number of pixels
    for (int key = 0; key < 14; ++key) {
        places[QString::fromLatin1(kGeometryKeys[key])] = QString::number((217 + 17 * key) * 15);
    }
    const std::pair<int, std::function<void(WindowBench&)>> cases[] = {
        {14, [](WindowBench&) {}},
        {14,
         [](WindowBench& b) {
             for (const char* name : {"frmProgram", "frmEEprom", "frmSetting"}) {
                 b.Child(name)->showMinimized();
             }
         }},
        {10, [](WindowBench& b) { Close(b.Child("frmEEprom")); }},
        {12, [](WindowBench& b) { Close(b.Child("frmSetting")); }},
        {0, [](WindowBench& b) { b.program.Window().showMinimized(); }}};
    for (const auto& [count, change] : cases) {
        for (const bool exit : {true, false}) {
            WindowBench b;
            b.settings.values.insert(places);
            b.Start();
            EXPECT_EQ(b.Child("frmProgram")->geometry(), QRect(285, 302, 319, 336));
            EXPECT_EQ(QRect(b.program.Window().pos(), b.program.Window().size()),
                      QRect(217, 234, 251, 268));
            b.settings.values.clear();
            change(b);
            exit ? b.Choose("mnuFileExit") : b.program.StoreLayout();
            EXPECT_EQ(b.settings.values.size(), count);
            for (const QString& key : b.settings.values.keys()) {
                EXPECT_EQ(b.settings.values[key], places[key]) << qPrintable(key);
            }
            EXPECT_EQ(b.ListingFiles().isEmpty(), exit);
        }
    }
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
        b.settings.values[u"MainLeft"_s] = u"-30000"_s;  // taken as it is
        b.settings.values[u"EEpTop"_s] = u"somewhere"_s;
        b.Start();
        EXPECT_EQ(b.program.Window().x(), -2000);
        EXPECT_EQ(b.Child("frmEEprom")->geometry(), Twips(50, 4100, 6900, 2000));
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
