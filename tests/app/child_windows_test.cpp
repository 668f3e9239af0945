// SPDX-License-Identifier: MIT
#include "app/child_windows.h"

#include <QScrollBar>
#include <QTest>

#include "tests/app/window_bench.h"
#include "widgets/fonts.h"

namespace tolvex::testing {
namespace {

void Close(QMdiSubWindow* window) {
    window->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(ChildWindows, ComeBackToTheirPlaceFromAnyState) {
    const std::tuple<const char*, const char*, QRect> windows[] = {
        {"frmProgram", "mmuOpenProgramWindow", {3, 3, 460, 267}},
        {"frmEEprom", "mmuOpenEEpromWindow", {3, 273, 460, 133}},
        {"frmSetting", "mmuOpenSettingWindow", {467, 3, 273, 403}}};  // pixels
    const std::function<void(QMdiSubWindow*)> states[] = {
        [](QMdiSubWindow* w) { w->showMinimized(); }, [](QMdiSubWindow* w) { w->showMaximized(); },
        Close};
    for (const auto& state : states) {
        for (const bool all : {true, false}) {
            RunningBench b;
            for (const auto& [name, item, place] : windows) {
                state(b.Child(name));
                b.Click(all ? "mmuWindowReDrow" : item);
                EXPECT_TRUE(all || b.window.Area().activeSubWindow() == b.Child(name)) << name;
            }
            for (const auto& [name, item, place] : windows) {
                EXPECT_EQ(b.Child(name)->geometry(), place) << &state - states << name;
            }
            EXPECT_TRUE(b.Find<QComboBox>("Combo_device")->isVisible());
        }
    }
}

TEST(ChildWindows, EveryPlaceIsTakenAndStored) {
    QMap<QString, QString> places;  // each key another whole number of pixels
    for (const QString& window : {u"Main"_s, u"Pgm"_s, u"EEp"_s, u"Set"_s}) {
        for (const QString& side : {u"Left"_s, u"Top"_s, u"Width"_s, u"Height"_s}) {
            places[window + side] = QString::number((217 + 17 * places.size()) * 15);
        }
    }
    places.remove(u"SetWidth"_s);  // fixed
    places.remove(u"SetHeight"_s);
    for (const int count : {14, 10, 12, 0}) {
        WindowBench b(0, 0, places);
        b.Start();
        b.Child("frmProgram")->showMinimized();
        if (count == 0) {
            b.window.showMinimized();
        } else if (count < 14) {
            Close(b.Child(count == 10 ? "frmEEprom" : "frmSetting"));
        }
        for (const bool exit : {false, true}) {
            b.settings.values.clear();
            exit ? b.Click("mnuFileExit") : b.program.StoreLayout();
            EXPECT_EQ(b.settings.values.size(), count);
            for (const auto& [key, value] : b.settings.values.asKeyValueRange()) {
                EXPECT_EQ(value, places[key]) << qPrintable(key);
            }
            EXPECT_EQ(b.ListingFiles().isEmpty(), exit);
        }
    }
}

TEST(ChildWindows, TheWindowMenuListsThem) {
    RunningBench b;
    auto* menu = b.Find<QMenu>("mnuWindow");
    const auto listed = [menu] {
        Q_EMIT menu->aboutToShow();
        QStringList texts;
        for (const QAction* item : menu->actions().mid(11)) {
            texts << item->text() + (item->isChecked() ? u" *"_s : QString());
        }
        return texts.join(u'|').toStdString();
    };
    const QString path = u"Program : /"_s + u"long/"_s.repeated(30) + u"[*]/a&b.hex"_s;
    b.program.Bench().ui.SetFlashCaption(u"Program : a[*]&b.hex"_s);
    b.Child("frmEEprom")->showMinimized();
    b.window.Area().setActiveSubWindow(b.Child("frmSetting"));
    EXPECT_EQ(listed(),
              "&1 AVRシリーズISPプログラマ　設定ウインドウ *|&2 Program : a[*]&&b.hex|"
              "&3 EEPROMデータメモリ");
    menu->actions().last()->trigger();
    EXPECT_FALSE(b.Child("frmEEprom")->isMinimized());
    EXPECT_EQ(b.window.Area().activeSubWindow(), b.Child("frmEEprom"));
    Close(b.Child("frmEEprom"));
    menu->actions().last()->trigger();  // an assistive tool may press what is not shown any more
    b.Child("frmSetting")->close();
    EXPECT_EQ(listed(), "&1 Program : a[*]&&b.hex");
    EXPECT_EQ(b.Child("frmProgram")->windowTitle(), u"Program : a[*][*]&b.hex"_s);  // escaped
    b.program.Bench().ui.SetFlashCaption(path);
    EXPECT_EQ(b.Child("frmProgram")->accessibleDescription(), path);
    listed();
    const QAction& item = *menu->actions().last();
    EXPECT_EQ(item.toolTip(), path);
    for (const QString& shown : {item.text(), b.Child("frmProgram")->windowTitle()}) {
        EXPECT_TRUE(shown.contains(u'…') && shown.endsWith(u"b.hex")) << qPrintable(shown);
    }
}

TEST(ChildWindows, AListingStaysWhereItIsScrolledAndLeavesTheFocus) {
    RunningBench b(2);
    auto* box = b.Find<QPlainTextEdit>("txtPrg");
    box->setFocus();
    box->verticalScrollBar()->setValue(40);
    EXPECT_EQ(b.Find<QGroupBox>("frmModify")->accessibleName(), u"PCバッファメモリ修正"_s);
    EXPECT_TRUE(b.Find<QRadioButton>("OptionEeprom")->isChecked());
    b.Type("txtAddress", u"140"_s);
    b.Click("OptionProgram");
    b.Type("txtData", u"1234"_s);
    b.Click("CmdWrite");
    EXPECT_TRUE(b.Find<QPlainTextEdit>("txtPrg")->toPlainText().contains(u"0140: 1234"_s));
    b.Type("txtData", QString());
    b.Click("CmdRead");
    EXPECT_EQ(b.Find<QLineEdit>("txtData")->text(), u"1234"_s);
    EXPECT_EQ(box->verticalScrollBar()->value(), 40);
    EXPECT_EQ(b.Focus(), u"txtPrg"_s);
    Close(b.Child("frmProgram"));
    auto* list = b.Find<QComboBox>("Combo_device");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);  // the closed listing comes back
    EXPECT_EQ(b.Focus(), u"Combo_device"_s);
    EXPECT_TRUE(b.Child("frmProgram")->isVisible());
    EXPECT_EQ(b.settings.values[u"device"_s], u"3"_s);
    b.Find<QWidget>("CmdRead")->setFocus();
    QWheelEvent notch({5, 5}, list->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(list, &notch);  // a wheel that only passes over the list
    EXPECT_EQ(list->currentIndex(), 3);
    b.Click("Verify");
    EXPECT_EQ(b.window.Area().activeSubWindow(), b.Child("frmVerify"));
}

TEST(ChildWindows, TheDefaultLayoutShowsEverythingInAnyFont) {
    const QFont before = QApplication::font();
    for (const int points : {8, 14}) {
        QApplication::setFont(WindowFont(QFont(before.family(), points)));
        // The one is taken as it is, the other not at all.
        WindowBench b(4, 0, {{u"MainLeft"_s, u"-30000"_s}, {u"EEpTop"_s, u"somewhere"_s}});
        b.Start();
        EXPECT_EQ(b.window.Area().activeSubWindow(), b.Child("frmProgram"));
        EXPECT_EQ(b.Child("frmSetting")->minimumSize(), b.Child("frmSetting")->maximumSize());
        EXPECT_EQ(b.window.x(), -2000);
        EXPECT_EQ(b.Child("frmEEprom")->y(), 273);
        EXPECT_FALSE(b.window.Area().verticalScrollBar()->isVisible()) << points;
        EXPECT_FALSE(b.window.Area().horizontalScrollBar()->isVisible()) << points;
        EXPECT_FALSE(b.Find<QWidget>("qt_menubar_ext_button")->isVisible());
        EXPECT_FALSE(b.Find<QWidget>("qt_toolbar_ext_button")->isVisible());
        b.Type("txtAddress", u"G"_s);
        const auto* message = b.Find<QDialog>("frmMsg");  // stands over the middle of the window
        const QWidget* inside = b.window.centralWidget();
        EXPECT_EQ(message->y() - inside->mapToGlobal(QPoint()).y(), (inside->height() - 120) / 2);
    }
    QApplication::setFont(before);
}

}  // namespace
}  // namespace tolvex::testing
