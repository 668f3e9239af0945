// SPDX-License-Identifier: MIT
#include "app/toolbar.h"

#include <QIcon>
#include <QToolButton>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 24;
constexpr int kSlotWidth = 8;

struct ButtonRow {
    QString key;
    QString caption;
    QString toolTip;
    int slotsAfter;  ///< empty placeholders to the right
};

}  // namespace

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent) {
    const ButtonRow rows[] = {
        {u"Open"_s, u"開く"_s, u"コード/データファイルを開く"_s, 0},
        {u"Save"_s, u"保存"_s, u"コード/データファイルを名前をつけて保存"_s, 1},
        {u"ReLoad"_s, u"ReLoad"_s, u"HEXファイルの再ロード"_s, 1},
        {u"Program"_s, u"Program"_s, u"プログラム/EEPROMデータメモリのプログラム"_s, 0},
        {u"Read"_s, u"Read"_s, u"プログラム/EEPROMデータメモリのリード"_s, 0},
        {u"Verify"_s, u"Verify"_s, u"プログラム/EEPROMデータメモリのベリファイ"_s, 0},
        {u"Erase"_s, u"Erase"_s, u"プログラム/EEPROMデータメモリ Lock/Fuseビット消去"_s, 3},
        {u"Clear"_s, u"ﾊﾞｯﾌｧｸﾘｱ"_s, u"PCバッファクリア"_s, 3},
        {u"ComSelect"_s, u"COM選択"_s, QString(), 0},
    };
    setObjectName(u"tbToolBar"_s);
    setAccessibleName(u"ツールバー"_s);
    setWindowTitle(u"ツールバー"_s);
    setMovable(false);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setIconSize({kIconSize, kIconSize});
    // Qt's own button for what a narrow window hides.
    if (auto* more = findChild<QToolButton*>(u"qt_toolbar_ext_button"_s)) {
        more->setAccessibleName(u"その他のボタン"_s);
    }
    for (const ButtonRow& row : rows) {
        QAction* action = addAction(QIcon(u":/icons/%1.svg"_s.arg(row.key)), row.caption, this,
                                    [this, key = row.key] { Q_EMIT ButtonClicked(key); });
        auto* button = static_cast<QToolButton*>(widgetForAction(action));
        button->setObjectName(row.key);
        button->setAccessibleName(row.caption);
        button->setAccessibleDescription(row.toolTip);
        button->setToolTip(row.toolTip);  // not the action's: that shows the caption when empty
        button->setFocusPolicy(Qt::TabFocus);
        AddSlots(row.slotsAfter);
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
