// SPDX-License-Identifier: MIT
#include "app/status_bar.h"

#include <QDate>
#include <QDateTime>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "widgets/fonts.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDatePanel = 4;

struct PanelRow {
    QString spoken;
    int stretch;
    int leastWidth;  ///< pixels, so that an empty panel is still seen as one
};

}  // namespace

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent) {
    const PanelRow rows[kPanels] = {
        {u"メッセージ"_s, 1, 0}, {u"ライタ"_s, 0, 24},     {u"シグネチャ"_s, 0, 24},
        {u"日付"_s, 0, 24},      {u"通信ポート"_s, 0, 40},
    };
    setObjectName(u"sbStatusBar"_s);
    setFont(BarFont());
    setAccessibleName(u"ステータスバー"_s);
    for (int i = 0; i < kPanels; ++i) {
        auto* label = new FittedLabel(rows[i].spoken, this);
        label->setObjectName(u"Panel%1"_s.arg(i + 1));
        label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        label->setMargin(2);
        label->setFocusPolicy(Qt::TabFocus);
        label->setMinimumWidth(rows[i].leastWidth);
        label->setSizePolicy(rows[i].stretch > 0 ? QSizePolicy::Ignored : QSizePolicy::Fixed,
                             QSizePolicy::Preferred);
        label->installEventFilter(this);
        addWidget(label, rows[i].stretch);
        panels_[static_cast<std::size_t>(i)] = label;
    }
    midnight_.setSingleShot(true);
    connect(&midnight_, &QTimer::timeout, this, &StatusBar::ShowDate);
    ShowDate();
}

FittedLabel* StatusBar::Panel(int panel) const {
    return panels_.at(static_cast<std::size_t>(panel - 1));
}

void StatusBar::SetPanelText(int panel, const QString& text) {
    Panel(panel)->ShowText(text);
}

QString StatusBar::PanelText(int panel) const {
    return Panel(panel)->WholeText();
}

void StatusBar::ShowDate() {
    const QDateTime now = QDateTime::currentDateTime();
    SetPanelText(kDatePanel, now.date().toString(u"yyyy/MM/dd"_s));
    // An hour at the most: the computer's clock may be set meanwhile.
    constexpr qint64 kHour = 3600 * 1000;
    const qint64 toMidnight = now.msecsTo(now.date().addDays(1).startOfDay());
    midnight_.start(static_cast<int>(std::min(toMidnight + 1, kHour)));
}

void StatusBar::FocusFirst() {
    Panel(1)->setFocus(Qt::OtherFocusReason);
}

/// The arrow keys and a click by key; false for any other key.
bool StatusBar::HandleKey(int panel, int key) {
    switch (key) {
        case Qt::Key_Left:
        case Qt::Key_Right: {
            const int next = panel + (key == Qt::Key_Right ? 1 : -1);
            Panel(std::clamp(next, 1, kPanels))->setFocus(Qt::OtherFocusReason);
            return true;
        }
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Q_EMIT PanelClicked(panel);
            return true;
        default:
            return false;
    }
}

bool StatusBar::eventFilter(QObject* watched, QEvent* event) {
    const auto found = std::find(panels_.begin(), panels_.end(), watched);
    if (found != panels_.end()) {
        const int panel = static_cast<int>(found - panels_.begin()) + 1;
        switch (event->type()) {
            case QEvent::MouseButtonRelease:
                if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
                    Q_EMIT PanelClicked(panel);
                }
                break;
            case QEvent::KeyPress:
                if (HandleKey(panel, static_cast<QKeyEvent*>(event)->key())) {
                    return true;
                }
                break;
            case QEvent::FocusIn:
            case QEvent::FocusOut: {
                const bool marked = event->type() == QEvent::FocusIn;
                (*found)->setAutoFillBackground(marked);
                (*found)->setBackgroundRole(marked ? QPalette::Highlight : QPalette::NoRole);
                (*found)->setForegroundRole(marked ? QPalette::HighlightedText : QPalette::NoRole);
                break;
            }
            default:
                break;
        }
    }
    return QStatusBar::eventFilter(watched, event);
}

}  // namespace tolvex
