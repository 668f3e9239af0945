// SPDX-License-Identifier: MIT
#include "app/toolbar.h"

#include <QIcon>
#include <QToolButton>

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 24;
constexpr int kSlotWidth = 8;

}  // namespace

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent) {
    // Key, caption, tool tip, empty placeholders to the right.
    const std::tuple<QString, QString, QString, int> buttons[] = {
        {u"Open"_s, Text::tr("開く"), Text::tr("コード/データファイルを開く"), 0},
        {u"Save"_s, Text::tr("保存"), Text::tr("コード/データファイルを名前をつけて保存"), 1},
        {u"ReLoad"_s, Text::tr("ReLoad"), Text::tr("HEXファイルの再ロード"), 1},
        {u"Program"_s, Text::tr("Program"), Text::tr("プログラム/EEPROMデータメモリのプログラム"),
         0},
        {u"Read"_s, Text::tr("Read"), Text::tr("プログラム/EEPROMデータメモリのリード"), 0},
        {u"Verify"_s, Text::tr("Verify"), Text::tr("プログラム/EEPROMデータメモリのベリファイ"), 0},
        {u"Erase"_s, Text::tr("Erase"),
         Text::tr("プログラム/EEPROMデータメモリ Lock/Fuseビット消去"), 3},
        {u"Clear"_s, Text::tr("ﾊﾞｯﾌｧｸﾘｱ"), Text::tr("PCバッファクリア"), 3},
        {u"ComSelect"_s, Text::tr("COM選択"), QString(), 0},
    };
    setObjectName(u"tbToolBar"_s);
    setAccessibleName(Text::tr("ツールバー"));
    setWindowTitle(Text::tr("ツールバー"));
    setMovable(false);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setIconSize({kIconSize, kIconSize});
    // Qt's own button for what a narrow window hides.
    if (auto* more = findChild<QToolButton*>(u"qt_toolbar_ext_button"_s)) {
        more->setAccessibleName(Text::tr("その他のボタン"));
    }
    for (const auto& [key, caption, toolTip, slotsAfter] : buttons) {
        QAction* action = addAction(QIcon(u":/icons/%1.svg"_s.arg(key)), caption, this,
                                    [this, name = key] { Q_EMIT ButtonClicked(name); });
        auto* button = static_cast<QToolButton*>(widgetForAction(action));
        button->setObjectName(key);
        button->setAccessibleName(caption);
        button->setAccessibleDescription(toolTip);
        button->setToolTip(toolTip);  // not the action's: that shows the caption when empty
        button->setFocusPolicy(Qt::TabFocus);
        AddSlots(slotsAfter);
    }
}

void Toolbar::AddSlots(int count) {
    if (count > 0) {
        auto* gap = new QWidget(this);
        gap->setFixedWidth(count * kSlotWidth);
        addWidget(gap);
    }
}

}  // namespace tolvex
