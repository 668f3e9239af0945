// SPDX-License-Identifier: MIT
// The socket notices what a chip need not put up with; without that, the other tests prove nothing.
#include "firmware/simulator/chip_socket.h"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A chip at 1 MHz on a script: "low" and "high" for RESET, "float" and "drive" for SCK and MOSI,
/// "19ms" to wait, "fast" for a fast SCK from then on, "late" for a MOSI that doesn't stay, eight
/// digits for an instruction, and
/// "=12345678" for what came back during it.
class Wires {
  public:
    explicit Wires(QStringView chip)
        : chip_(*FindChipModel(chip)), socket_(&chip_, {.ownClockHertz = 1e6}) {}

    /// What the socket noticed first.
    QString Play(const QString& script) {
        for (const QString& step : script.split(u' ', Qt::SkipEmptyParts)) {
            if (step == u"low"_s || step == u"high"_s) {
                lines_.reset = step == u"high"_s;
                Tell(1ms);
            } else if (step == u"float"_s || step == u"drive"_s) {
                lines_.sck = step == u"drive"_s ? Level(false) : std::nullopt;
                lines_.mosi = lines_.sck;
                Tell(1ms);
            } else if (step == u"fast"_s) {
                halfClock_ = 2us;
            } else if (step == u"late"_s) {
                lateMosi_ = true;
            } else if (step.endsWith(u"ms"_s)) {
                now_ += std::chrono::milliseconds(step.chopped(2).toInt());
            } else if (step.startsWith(u'=')) {
                EXPECT_EQ(answer_, step.mid(1).toUInt(nullptr, 16)) << script.toStdString();
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
            Tell(0us);
            now_ += halfClock_;
            lines_.sck = true;
            Tell(0us);
            if (lateMosi_) {
                lines_.mosi = !*lines_.mosi;
                Tell(0us);
            }
            now_ += halfClock_;
            answer_ = answer_ << 1 | (socket_.Miso() == true ? 1u : 0u);
            lines_.sck = false;
            Tell(0us);
        }
    }
    void Tell(ChipSocket::Instant wait) {
        now_ += wait;
        socket_.SetLines(lines_, now_);
    }

    SimulatedChip chip_;
    ChipSocket socket_;
    ChipSocket::Lines lines_;
    ChipSocket::Instant now_{0}, halfClock_ = 5us;
    bool lateMosi_ = false;
    unsigned answer_ = 0;
};

TEST(ChipSocket, NoticesWhatAChipNeedNotPutUpWith) {
    const QString take = u"low drive high low "_s, enter = take + u"20ms ac530042 "_s;
    const QString writing = u"チップの書き込み中の命令: "_s;
    const struct {
        QString script, violation;
        QStringView chip = u"AT90S2313";
    } cases[] = {
        {enter + u"=ffac5300 30770100 =42307791 40000512 =00400005 20000500 =1220007f "
                 "2ms 20000500 =0020007f 2ms 20000500 =00200012 high"_s,
         {}},
        {enter + u"a0000000 =42a000ff c0000055 a0000000 =55a00000 5ms a0000000 =00a000ff "
                 "6ms a0000000 =00a00055 c00000aa 9ms a0000000 =aaa000aa high"_s,
         {},
         u"AT90S4433"},
        {u"fast "_s + enter, u"SCK が速すぎるか、チップにクロックがありません"_s},
        {u"fast "_s + enter, u"SCK が速すぎるか、チップにクロックがありません"_s, u"AT90S1200"},
        {enter + u"30000100 =ffffff90"_s, {}, u"AT90S1200"},
        {u"late "_s + enter, u"SCK が High の間に MOSI が変わりました"_s},
        {u"drive"_s, u"チップが出力するかもしれない線に出力しました"_s},
        {take + u"high ac530000"_s, u"RESET が High の間に SCK が動きました"_s},
        {take + u"18ms ac530000"_s, u"RESET が Low になってから SCK が動くまでが短すぎます"_s},
        {u"low drive 20ms ac530000"_s,
         u"RESET が Low になったとき、SCK が Low ではありませんでした"_s},
        {enter + u"float"_s, u"RESET が Low の間に線が浮いています"_s},
        {take + u"20ms ac800000"_s, u"最初の命令が Programming Enable ではありません"_s},
        {enter + u"40000001 48000001"_s, writing + u"Write Flash"_s},
        {enter + u"40000001 20000100"_s, writing + u"Read Flash"_s},
        {enter + u"c0000001 20000000"_s, writing + u"Read Flash"_s},
        {enter + u"ac800000 19ms 30000000"_s, writing + u"Read Signature"_s},
        {enter + u"ac800000 20ms 30000000"_s,
         u"Chip Erase の後、リセットなしの命令: Read Signature"_s},
        {enter + u"acff0000 8ms 30000000"_s, writing + u"Read Signature"_s},
        {enter + u"c0000001 high"_s, u"チップの書き込み中に RESET が High になりました"_s},
        {enter + u"58000000"_s, u"チップに命令 58 00 00 00 はありません"_s},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Wires(c.chip).Play(c.script), c.violation) << c.script.toStdString();
    }
}

}  // namespace
}  // namespace tolvex
