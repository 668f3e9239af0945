// SPDX-License-Identifier: MIT
// What reads bytes from outside, under libFuzzer. The environment variable TOLVEX_FUZZ names the
// target; `./test --fuzz SECONDS` runs each in turn.
#include <QCoreApplication>
#include <QTemporaryFile>
#include <cstdlib>

#include "image/hex_check.h"
#include "image/hex_reader.h"
#include "platform/settings_file.h"
#include "tests/support/test_bench.h"
#include "writer/chip_state_file.h"
#include "writer/trace_replay.h"

namespace tolvex::testing {
namespace {

void Must(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// The bytes as a file.
QString AsFile(const QByteArray& bytes) {
    static QTemporaryFile file;
    Must(file.open() && file.resize(0) && file.write(bytes) == bytes.size() && file.flush());
    file.close();
    return file.fileName();
}

/// The reader once more, as plainly as it can be said. `swap`: the bytes of a word trade places.
HexReadResult ReadPlainly(const QByteArray& text, std::span<std::uint8_t> image, unsigned swap) {
    const auto digit = [](const QByteArray& line, qsizetype at) {
        const qsizetype value =
            at < line.size() ? QByteArray("0123456789ABCDEF").indexOf(line[at]) : 0;
        return static_cast<unsigned>(std::max<qsizetype>(value, 0));
    };
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = at;
        while (end < text.size() && text[end] != '\r' && text[end] != '\n') {
            ++end;
        }
        const QByteArray line = text.sliced(at, end - at);
        at = end + (text.sliced(end).startsWith("\r\n") ? 2 : 1);
        if (!line.startsWith(':')) {
            return HexReadResult::NoColon;
        }
        unsigned address = 0;
        for (qsizetype i = 3; i < 7; ++i) {
            address = address * 16 + digit(line, i);
        }
        const unsigned count = digit(line, 1) * 16 + digit(line, 2);
        const bool data = digit(line, 7) == 0 && digit(line, 8) == 0;
        for (unsigned k = 0; data && k < count; ++k) {
            if (address + k >= image.size()) {
                return HexReadResult::Failed;
            }
            image[(address + k) ^ swap] =
                static_cast<std::uint8_t>(digit(line, 9 + 2 * k) * 16 + digit(line, 10 + 2 * k));
        }
    }
    return HexReadResult::Complete;
}

void ReadHex(const QByteArray& bytes) {
    const QString path = AsFile(bytes);
    MemoryImages ours, theirs;
    ErrorFlag flag;
    Must(ReadCodeHex(path, ours.flash, flag) ==
         ReadPlainly(bytes, std::span(theirs.flash).first(0x10000), 1));
    Must(ReadDataHex(path, ours.eeprom, flag) == ReadPlainly(bytes, theirs.eeprom, 0));
    Must(ours.flash == theirs.flash && ours.eeprom == theirs.eeprom);
}

/// A file that the checker has nothing against is read whole and without a doubt.
void CheckHexFile(const QByteArray& bytes) {
    const QString path = AsFile(bytes);
    const HexReport report = CheckHex(path, 8192);
    MemoryImages images;
    ErrorFlag flag;
    Must(!report.Clean() ||
         (ReadCodeHex(path, images.flash, flag) == HexReadResult::Complete && !flag.Failed()));
}

void ReadSettings(const QByteArray& bytes) {
    const QString path = AsFile(bytes);
    const QString text = QString::fromUtf8(bytes.first(std::min<qsizetype>(bytes.size(), 40)));
    SettingsFile settings(path);
    for (const NumberKey& key :
         {keys::MainLeft, keys::ComNox, keys::Device, keys::IndexFirstFlag}) {
        const double number = GetNumber(settings, key);
        Must(number >= key.minimum && number <= key.maximum);
    }
    settings.SaveSetting(QString::fromLatin1(keys::OpenDir), text);
    Must(SettingsFile(path).GetSetting(QString::fromLatin1(keys::OpenDir), {}) == text);
}

void Replay(const QByteArray& bytes) {
    TraceReplay replay;
    if (replay.Load(AsFile(bytes))) {
        return;
    }
    replay.SkipDelays();
    for (char c = 0; c < 127 && !replay.Failure(); ++c) {
        replay.Send(QByteArrayView(&c, 1), {});
        replay.Run({});
    }
}

/// A chip that could be loaded is the same after it was saved.
void LoadState(const QByteArray& bytes) {
    const LoadedChip loaded = LoadChip(AsFile(bytes));
    if (const auto* chip = std::get_if<SimulatedChip>(&loaded)) {
        const QString path = AsFile({});
        Must(!SaveChip(*chip, path));
        Must(std::get<SimulatedChip>(LoadChip(path)).Contents() == chip->Contents());
    }
}

/// Whatever comes in, a command ends after three bytes, and no chip changes its size.
void FeedBoard(const QByteArray& bytes) {
    SimulatedChip chip(ChipModels()[static_cast<std::size_t>(bytes.size()) % ChipModels().size()]);
    SimulatedWriter board(&chip);
    int unanswered = 0;
    for (const char byte : bytes) {
        const auto reply = board.Receive(static_cast<std::uint8_t>(byte));
        unanswered = reply ? 0 : unanswered + 1;
        Must(unanswered < 3 && (!reply || !reply->bytes.isEmpty()));
    }
    Must(chip.Contents().flash.size() == 2 * chip.Model().flashWords);
}

/// A board that answers what it likes.
class AnyPort : public SerialPort {
  public:
    explicit AnyPort(const QByteArray& replies) : replies_(replies) {}
    void Configure(int) override {}
    int PortNumber() const override { return 1; }
    bool Open() override { return open_ = true; }
    void Close() override { open_ = false; }
    bool IsOpen() const override { return open_; }
    int InputCount() const override { return static_cast<int>(input_.size()); }
    void DiscardInput() override { input_.clear(); }
    bool Write(QByteArrayView) override {
        const qsizetype length = replies_.isEmpty() ? 0 : replies_[0] & 15;
        open_ = open_ && !replies_.isEmpty();  // the far end goes away after the last one
        input_ += replies_.mid(1, length);
        replies_ = replies_.mid(1 + length);
        return open_;
    }
    QByteArray ReadAll() override { return std::exchange(input_, {}); }

  private:
    QByteArray replies_, input_;
    bool open_ = false;
};

void Answer(const QByteArray& bytes) {
    const char* const buttons[] = {"Program", "Read", "Verify", "Erase", "FuseRead", "FuseWrite"};
    const QByteArray choice = bytes.left(2).leftJustified(2, '\0');
    AnyPort port(bytes.mid(2));
    const auto devices = static_cast<int>(Catalogue().size());
    TestBench t(static_cast<std::uint8_t>(choice[0]) % devices, &port);
    t.bench.state.images.flash[1] = t.bench.state.images.eeprom[1] = 0x55;
    t.Press(QString::fromLatin1(buttons[static_cast<std::uint8_t>(choice[1]) % 6]));
}

}  // namespace
}  // namespace tolvex::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tolvex::testing;
    static int one = 1;
    static char name[] = "fuzz";
    static char* names[] = {name, nullptr};
    static const QCoreApplication application(one, names);
    static const QMap<QByteArray, void (*)(const QByteArray&)> targets = {
        {"hex", ReadHex},   {"check", CheckHexFile}, {"settings", ReadSettings},
        {"trace", Replay},  {"state", LoadState},    {"board", FeedBoard},
        {"replies", Answer}};
    targets[qgetenv("TOLVEX_FUZZ")](
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
