// SPDX-License-Identifier: MIT
#include "cli/progress_line.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBarWidth = 30;
constexpr auto kWipe = "\r\033[K";

}  // namespace

void ProgressLine::Begin(const QString& text) {
    if (silent_ || text == text_) {
        return;
    }
    End();
    text_ = text;
    start_ = clock_.Now();
    if (console_.IsTerminal()) {
        console_.Draw(QString::fromLatin1(kWipe) + text_);
        drawn_ = true;
    } else {
        console_.Complain(text_);
    }
}

void ProgressLine::Step(double minimum, double value, double maximum) {
    if (silent_ || text_.isEmpty()) {
        return;
    }
    const double fraction = maximum > minimum ? (value - minimum) / (maximum - minimum) : 1;
    const int percent = static_cast<int>(100 * fraction);
    const int step = console_.IsTerminal() ? percent : percent / 25;
    if (step == shown_) {
        return;
    }
    shown_ = step;
    if (console_.IsTerminal()) {
        DrawBar(percent, fraction);
    } else if (step > 0) {
        console_.Complain(u"%1 %2%"_s.arg(text_).arg(25 * step));
    }
}

void ProgressLine::DrawBar(int percent, double fraction) {
    if (percent == 0) {
        start_ = clock_.Now();
    }
    const auto done = static_cast<int>(kBarWidth * fraction);
    QString line =
        u"%1 [%2%3] %4%"_s.arg(text_, QString(done, u'#'), QString(kBarWidth - done, u'.'))
            .arg(percent, 3);
    if (percent > 0 && percent < 100) {
        const std::chrono::duration<double> elapsed = clock_.Now() - start_;
        const int left = static_cast<int>(elapsed.count() * (1 - fraction) / fraction + 0.5);
        line += u" 残り %1:%2"_s.arg(left / 60).arg(left % 60, 2, 10, QChar(u'0'));
    }
    console_.Draw(QString::fromLatin1(kWipe) + line);
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
