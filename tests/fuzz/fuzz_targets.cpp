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

/// As far as the EEPROM's image reaches, code and data are read alike, but for the order in a word.
void ReadHex(const QByteArray& bytes) {
    const QString path = AsFile(bytes);
    MemoryImages images;
    ErrorFlag flag;
    const HexReadResult code = ReadCodeHex(path, images.flash, flag);
    const HexReadResult data = ReadDataHex(path, images.eeprom, flag);
    const bool within = data != HexReadResult::Failed;
    Must(!within || code == data);
    for (std::size_t cell = 0; within && cell < images.eeprom.size() - 1; ++cell) {
        Must(images.flash[cell ^ 1] == images.eeprom[cell]);
    }
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
    SimulatedChip chip(ChipModels()[static_cast<std::size_t>(bytes.size() % 10)]);
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
    TestBench t(static_cast<std::uint8_t>(choice[0]) % 10, &port);
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
