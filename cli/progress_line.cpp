// SPDX-License-Identifier: MIT
#include "cli/progress_line.h"

#include <algorithm>

#include "base/command_line_help.h"
#include "base/text.h"
namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidestBar = 30;
constexpr int kNarrowestBar = 5;
constexpr auto kWipe = "\r\033[K";

QString TimeLeft(int seconds) {
    return Text::tr(" 残り %1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
}

}  // namespace

void ProgressLine::Begin(const QString& text) {
    if (text == text_) {
        return;
    }
    End();
    text_ = text;
    start_ = clock_.Now();
    if (console_.Columns() > 0) {
        Draw(text_);
    } else {
        console_.Complain(text_);
    }
}

void ProgressLine::Step(double minimum, double value, double maximum) {
    const int columns = console_.Columns();
    if (text_.isEmpty() || columns == 0) {
        return;
    }
    const double fraction = maximum > minimum ? (value - minimum) / (maximum - minimum) : 1;
    const int percent = static_cast<int>(100 * fraction);
    if (percent != shown_) {
        shown_ = percent;
        Draw(Bar(percent, fraction, columns));
    }
}

QString ProgressLine::Bar(int percent, double fraction, int columns) {
    if (percent == 0) {
        start_ = clock_.Now();
    }
    QString end = u" %1%"_s.arg(percent, 3);
    if (percent > 0 && percent < 100) {
        const std::chrono::duration<double> elapsed = clock_.Now() - start_;
        const int left = qRound(elapsed.count() * (1 - fraction) / fraction);
        end += TimeLeft(left);
    }
    // The width is that of the longest line, so that the bar does not change while it grows.
    const int room = columns - 1 - Columns(text_ + u" [] 100%"_s + TimeLeft(0));
    const int width = std::min(kWidestBar, room);
    if (width < kNarrowestBar) {
        return text_ + end;
    }
    const auto done = static_cast<int>(width * fraction);
    return u"%1 [%2%3]%4"_s.arg(text_, QString(done, u'#'), QString(width - done, u'.'), end);
}

void ProgressLine::Draw(const QString& line) {
    QString cut = line;
    while (Columns(cut) >= console_.Columns() && !cut.isEmpty()) {
        cut.chop(1);
    }
    console_.Draw(QString::fromLatin1(kWipe) + cut);
    drawn_ = true;
}

void ProgressLine::End() {
    if (drawn_) {
        console_.Draw(QString::fromLatin1(kWipe));
    }
    drawn_ = false;
    shown_ = -1;
    text_.clear();
}

}  // namespace tolvex
