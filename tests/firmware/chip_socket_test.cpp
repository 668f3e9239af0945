// SPDX-License-Identifier: MIT
// The socket notices what a chip need not put up with; without that, the other tests prove nothing.
#include "firmware/simulator/chip_socket.h"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// An AT90S2313 at 1 MHz on a script: "low" and "high" for RESET, "float" for SCK, "19ms" to wait,
/// "fast" for a fast SCK from then on, eight digits for an instruction, and "=12" for its answer.
class Wires {
  public:
    Wires() : chip_(*FindChipModel(u"AT90S2313")), socket_(&chip_, {.ownClockHertz = 1e6}) {}

    /// What the socket noticed first.
    QString Play(const QString& script) {
        for (const QString& step : script.split(u' ')) {
            if (step == u"low"_s || step == u"high"_s) {
                lines_.reset = step == u"high"_s;
                Tell(1ms);
            } else if (step == u"float"_s) {
                lines_.sck.reset();
                Tell(1ms);
            } else if (step == u"fast"_s) {
                halfClock_ = 2us;
            } else if (step.endsWith(u"ms"_s)) {
                now_ += std::chrono::milliseconds(step.chopped(2).toInt());
            } else if (step.startsWith(u'=')) {
                EXPECT_EQ(answer_ & 0xFF, step.mid(1).toInt(nullptr, 16)) << script.toStdString();
            } else {
                Instruct(step.toUInt(nullptr, 16));
            }
        }
        return socket_.Violations().value(0).section(u": "_s, 1);
    }

  private:
    void Instruct(unsigned bits) {
        for (int bit = 31; bit >= 0; --bit) {
            lines_.mosi = (bits >> bit & 1) != 0;
            lines_.sck = true;
            Tell(halfClock_);
            answer_ = answer_ << 1 | (socket_.Miso() == true ? 1u : 0u);
            lines_.sck = false;
            Tell(halfClock_);
        }
    }
    void Tell(ChipSocket::Instant wait) {
        now_ += wait;
        socket_.SetLines(lines_, now_);
    }

    SimulatedChip chip_;
    ChipSocket socket_;
    ChipSocket::Lines lines_{true, false, false, 0};
    ChipSocket::Instant now_{0}, halfClock_ = 5us;
    unsigned answer_ = 0;
};

TEST(ChipSocket, NoticesWhatAChipNeedNotPutUpWith) {
    const QString enter = u"low 20ms ac530000 "_s;
    const QString writing = u" while the chip is writing"_s;
    const std::pair<QString, QString> cases[] = {
        {enter + u"30000100 =91 40000512 3ms 20000500 =ff 1ms 20000500 =12 high"_s, {}},
        {u"fast "_s + enter, u"SCK is too fast, or the chip has no clock"_s},
        {u"ac530000"_s, u"SCK moves while RESET is high"_s},
        {u"low 19ms ac530000"_s, u"SCK moves too soon after RESET went low"_s},
        {u"float low"_s, u"SCK is not low when RESET goes low"_s},
        {enter + u"float"_s, u"a line floats while RESET is low"_s},
        {u"low 20ms ac800000"_s, u"the first instruction is not Programming Enable"_s},
        {enter + u"40000001 48000001"_s, u"Write Flash"_s + writing},
        {enter + u"40000001 20000100"_s, u"Read Flash"_s + writing},
        {enter + u"c0000001 20000000"_s, u"Read Flash"_s + writing},
        {enter + u"ac800000 19ms 30000000"_s, u"Read Signature"_s + writing},
        {enter + u"c0000001 high"_s, u"RESET goes high"_s + writing},
        {enter + u"58000000"_s, u"the chip has no instruction 58 00 00 00"_s},
    };
    for (const auto& [script, violation] : cases) {
        EXPECT_EQ(Wires().Play(script.trimmed()), violation) << script.toStdString();
    }
}

}  // namespace
}  // namespace tolvex
