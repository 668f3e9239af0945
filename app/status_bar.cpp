// SPDX-License-Identifier: MIT
#include "app/status_bar.h"

#include <QAccessibleWidget>
#include <QDate>
#include <QDateTime>
#include <QEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <algorithm>

#include "base/text.h"
#include "base/user_interface.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDatePanel = 4;
/// What panel 1 keeps of a narrow window, in characters of full width.
constexpr int kMessageCharacters = 24;

struct PanelRow {
    QString spoken;
    int stretch;
    int leastWidth;  ///< pixels, so that an empty panel is still seen as one
    QSizePolicy::Policy policy;
};

/// To assistive tools the panels are notifications, which they read out when one is shown.
QAccessibleInterface* NewNotification(const QString&, QObject* object) {
    auto* panel = qobject_cast<FittedLabel*>(object);
    const bool found = panel != nullptr && qobject_cast<QStatusBar*>(panel->parent()) != nullptr;
    return found ? new QAccessibleWidget(panel, QAccessible::Notification) : nullptr;
}

}  // namespace

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent) {
    const PanelRow rows[kPanels] = {
        // clang-format off
        {Text::tr("メッセージ"), 1, 0, QSizePolicy::Ignored}, {Text::tr("ライタ"), 0, 24, QSizePolicy::Preferred},
        {Text::tr("シグネチャ"), 0, 24, QSizePolicy::Fixed}, {Text::tr("日付"), 0, 24, QSizePolicy::Preferred},
        {Text::tr("通信ポート"), 0, 40, QSizePolicy::Fixed},
        // clang-format on
    };
    setObjectName(u"sbStatusBar"_s);
    QAccessible::installFactory(NewNotification);
    setAccessibleName(Text::tr("ステータスバー"));
    for (int i = 0; i < kPanels; ++i) {
        auto* label = new FittedLabel(rows[i].spoken, this);
        label->setObjectName(u"Panel%1"_s.arg(i + 1));
        label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        label->setMargin(2);
        label->setFocusPolicy(Qt::TabFocus);
        label->setMinimumWidth(rows[i].leastWidth);
        label->setSizePolicy(rows[i].policy, QSizePolicy::Preferred);
        label->installEventFilter(this);
        addWidget(label, rows[i].stretch);
        panels_[static_cast<std::size_t>(i)] = label;
    }
    midnight_.setSingleShot(true);
    midnight_.setTimerType(Qt::PreciseTimer);
    connect(&midnight_, &QTimer::timeout, this, &StatusBar::ShowDate);
    ShowDate();
}

FittedLabel* StatusBar::Panel(int panel) const {
    return panels_.at(static_cast<std::size_t>(panel - 1));
}

void StatusBar::SetPanelText(int panel, const QString& text) {
    Panel(panel)->ShowText(text);
    ShareWidth();
}

/// In a narrow window first the date, then the writer give way to the message.
void StatusBar::ShareWidth() {
    int spare = width() - fontMetrics().height() * kMessageCharacters;
    const auto wanted = [this](int panel) {
        return std::max(Panel(panel)->sizeHint().width(), Panel(panel)->minimumWidth());
    };
    const int gap = layout()->spacing();
    for (const int panel : {kSignaturePanel, kPortPanel}) {
        spare -= wanted(panel) + gap;
    }
    for (const int panel : {int{kWriterPanel}, kDatePanel}) {
        const int least = Panel(panel)->minimumWidth();
        Panel(panel)->setMaximumWidth(std::clamp(spare, least, wanted(panel)));
        spare -= Panel(panel)->maximumWidth() + gap;
    }
}

void StatusBar::resizeEvent(QResizeEvent* event) {
    QStatusBar::resizeEvent(event);
    ShareWidth();
}

void StatusBar::AnnounceMessage() {
    for (const auto type : {QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent event(Panel(kMessagePanel), type);
        QAccessible::updateAccessibility(&event);
    }
}

QString StatusBar::PanelText(int panel) const {
    return Panel(panel)->WholeText();
}

void StatusBar::ShowDate() {
    const QDateTime now = QDateTime::currentDateTime();
    SetPanelText(kDatePanel, now.date().toString(u"yyyy/MM/dd"_s));
    // A minute at the most: the computer may sleep over midnight, or its clock be set.
    constexpr qint64 kMinute = 60 * 1000;
    const qint64 toMidnight = now.msecsTo(now.date().addDays(1).startOfDay());
    midnight_.start(static_cast<int>(std::min(toMidnight + 1, kMinute)));
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
                // A press that is dragged off the panel is no click.
                if (const auto* mouse = static_cast<QMouseEvent*>(event);
                    mouse->button() == Qt::LeftButton &&
                    (*found)->rect().contains(mouse->position().toPoint())) {
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
