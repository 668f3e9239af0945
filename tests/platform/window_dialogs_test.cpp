// SPDX-License-Identifier: MIT
#include "platform/window_dialogs.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "tests/support/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(WindowDialogs, FiltersNameEveryPatternInBothCases) {
    EXPECT_EQ(NameFilters(u"Hex File|*.hex;*.rom|All Files|*.*|"_s),
              (QStringList{u"Hex File (*.hex *.HEX *.rom *.ROM)"_s, u"All Files (*)"_s}));
    EXPECT_EQ(NameFilters(u"eep File| *.EEP ;|Nothing||Alone"_s),
              QStringList{u"eep File (*.eep *.EEP)"_s});
}

/// Runs `act` on the modal window that comes up next, then closes it if `act` did not.
void WhenShown(const std::function<void(QFileDialog&)>& act) {
    QTimer::singleShot(0, qApp, [act] {
        auto* window = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        act(*window);
        window->close();
    });
}

TEST(WindowDialogs, FileDialogsShowTheRequestAndReturnWholeNames) {
    WindowDialogs dialogs([] { return nullptr; });
    const QTemporaryDir folder, other;
    testing::PutFile(folder.filePath(u"old.hex"_s), "");
    testing::PutFile(folder.filePath(u"README"_s), "");
    const QString filter = u"Hex File|*.hex;*.rom|All Files|*.*|"_s;
    FileDialogRequest request{u"コードファイル(*.hex)を開く"_s, {}, filter, u"hex;rom"_s, {}};
    // clang-format off
    const struct { QString stated, name, start, shown; } places[] = {
        {folder.path(), other.filePath(u"a.hex"_s), folder.path(), u"a.hex"_s},
        {folder.filePath(u"gone"_s), other.filePath(u"a.hex"_s), other.path(), u"a.hex"_s},
        {u""_s, other.filePath(u"gone/a.hex"_s), QDir::currentPath(), u"a.hex"_s},
        {folder.path(), u"*.hex"_s, folder.path(), u"*.hex"_s},
    };
    // clang-format on
    for (const auto& [stated, name, start, shown] : places) {
        request.directory = stated;
        request.initialName = name;
        WhenShown([&, where = start, what = shown](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), request.title);
            EXPECT_EQ(dialog.nameFilters(), NameFilters(filter));
            EXPECT_EQ(dialog.directory().path(), where);
            EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), what);
            QMetaObject::invokeMethod(&dialog, "accept");
            EXPECT_EQ(dialog.isVisible(), what.startsWith(u'*')) << "a pattern is no name";
        });
        EXPECT_EQ(dialogs.AskOpenFile(request).has_value(), !shown.startsWith(u'*'));
    }

    // clang-format off
    const struct { const char* what; bool save; QString typed, bareName; } cases[] = {
        {"open a missing file", false, u"gone.rom"_s, u"gone.rom"_s},
        {"replace without a question", true, u"old.hex"_s, u"old.hex"_s},
        {"suffix added to a new name", true, u"new"_s, u"new.hex"_s},
        {"also where a file has none", true, u"README"_s, u"README.hex"_s},
        {"and behind a dot", true, u"new."_s, u"new.hex"_s},
        {"not to an existing one", false, u"README"_s, u"README"_s},
    };
    // clang-format on
    for (const auto& c : cases) {
        WhenShown([&](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>()->setText(c.typed);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        EXPECT_EQ(c.save ? dialogs.AskSaveFile(request) : dialogs.AskOpenFile(request),
                  folder.filePath(c.bareName))
            << c.what;
    }
}

TEST(WindowDialogs, AssistiveToolsKeepNoCellLongerThanItsModel) {
    const QTemporaryDir folder;
    testing::PutFile(folder.filePath(u"a.hex"_s), "");
    QList<QAccessible::Id> cells, left;
    WhenShown([&](QFileDialog& dialog) {
        auto* list = dialog.findChild<QListView*>(u"listView"_s);
        EXPECT_TRUE(QTest::qWaitFor([list] { return list->model()->rowCount(list->rootIndex()); }));
        QAccessibleInterface* view = QAccessible::queryAccessibleInterface(list);
        for (int i = 0; i < view->childCount(); ++i) {
            if (QAccessibleInterface* cell = view->child(i)) {  // null where nothing stands
                cells << QAccessible::uniqueId(cell);
            }
        }
        QObject::connect(list->model(), &QObject::destroyed, qApp, [&] {
            for (const QAccessible::Id cell : cells) {
                left << (QAccessible::accessibleInterface(cell) ? cell : 0);
            }
        });
    });
    WindowDialogs([] {
        return nullptr;
    }).AskOpenFile({u"title"_s, folder.path(), u"All Files|*.*|"_s});
    EXPECT_EQ(left, QList<QAccessible::Id>(cells.size(), 0));
    EXPECT_FALSE(cells.isEmpty());
}

TEST(WindowDialogs, BoxesBlockTheirOwnerAloneAndStandAboveWhatStaysOnTop) {
    QWidget owner;
    QWidget onTop(&owner, Qt::Window | Qt::WindowStaysOnTopHint);
    owner.show();
    WindowDialogs dialogs([&owner] { return &owner; });
    const std::tuple<BoxIcon, QMessageBox::Icon, const char*> cases[] = {
        {BoxIcon::None, QMessageBox::NoIcon, "Command_ok"},
        {BoxIcon::Stop, QMessageBox::Critical, "Command_ok"},
        {BoxIcon::Information, QMessageBox::Information, "Command_ok"},
        {BoxIcon::Information, QMessageBox::Information, "Command_cancel"},
        {BoxIcon::Information, QMessageBox::Information, nullptr}};  // closed is not agreed to
    for (const auto& [icon, shown, button] : cases) {
        onTop.setVisible(icon != BoxIcon::None);
        QTimer::singleShot(0, qApp, [&, wanted = shown, name = button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->icon(), wanted);
            EXPECT_EQ(box->text(), u"a <b> c"_s);
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            EXPECT_EQ(box->parentWidget(), &owner);
            EXPECT_EQ(box->windowModality(), Qt::WindowModal);  // the help can be used
            EXPECT_EQ(box->windowFlags().testFlag(Qt::WindowStaysOnTopHint), onTop.isVisible());
            EXPECT_EQ(ModalOwner(&owner), box);  // a further question blocks this one
            name ? box->findChild<QPushButton*>(QLatin1StringView(name))->click()
                 : void(box->close());
        });
        if (icon == BoxIcon::Information) {
            EXPECT_EQ(dialogs.AskOkCancel(u"title"_s, u"a <b> c"_s),
                      QByteArray(button) == "Command_ok");
        } else {
            dialogs.ShowBox(icon, u"title"_s, u"a <b> c"_s);
        }
    }
}

}  // namespace
}  // namespace tolvex
