// SPDX-License-Identifier: MIT
// A real port, and the COM numbers that lead to it.
#include "port/qt_serial_port.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/serial.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <cstdarg>
#include <numeric>

#include "platform/event_loop_clock.h"
#include "tests/support/file_troubles.h"
#include "tests/support/real_files.h"

/// What a serial driver knows and a pseudo-terminal lacks.
static struct {
    bool rts;
    int flags;
} driver;

/// Stands before the C library's and plays the driver.
extern "C" int ioctl(int descriptor, unsigned long request, ...) noexcept {
    va_list list;
    va_start(list, request);
    void* argument = va_arg(list, void*);
    va_end(list);
    if (request == TIOCGSERIAL) {
        static_cast<serial_struct*>(argument)->flags = driver.flags;
    } else if (request == TIOCSSERIAL) {
        driver.flags = static_cast<serial_struct*>(argument)->flags;
    } else if (request == TIOCMBIS || request == TIOCMBIC) {
        driver.rts = (*static_cast<int*>(argument) & TIOCM_RTS) ? request == TIOCMBIS : driver.rts;
    } else {
        return static_cast<int>(::syscall(SYS_ioctl, descriptor, request, argument));
    }
    return 0;
}

namespace tolvex {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

TEST(ComPorts, NumbersMeanTheSystemsDevicesUnlessALinkLeadsElsewhere) {
    QTemporaryDir config;
    ASSERT_TRUE(QDir(config.path()).mkdir(u"ports"_s));
    const QString link = config.filePath(u"ports/com"_s);
    ASSERT_TRUE(QFile::link(u"/dev/null"_s, link + u'3'));
    ASSERT_TRUE(QFile::link(u"../gone"_s, link + u'4'));
    ComPorts ports(config.path() + u'/');
    ports.Assign(2, u"/dev/mine"_s);
    const std::pair<int, QString> cases[] = {
        // clang-format off
        {0, u""_s}, {1, u"/dev/ttyS0"_s}, {2, u"/dev/mine"_s}, {3, link + u'3'}, {4, link + u'4'},
        {5, u"/dev/ttyUSB0"_s}, {12, u"/dev/ttyUSB7"_s}, {13, u"/dev/ttyACM0"_s},
        {20, u"/dev/ttyACM7"_s}, {21, u""_s},
        // clang-format on
    };
    for (const auto& [number, path] : cases) {
        EXPECT_EQ(ports.DevicePath(number), path) << number;
    }
    EXPECT_EQ(ComPorts(u"/missing/folder/"_s).DevicePath(4), u"/dev/ttyS3"_s);
    const QList<ComPort> all = ports.All();
    ASSERT_EQ(all.size(), kComPortCount);
    EXPECT_TRUE(all[2].number == 3 && all[2].devicePath == link + u'3' && all[2].present);
    EXPECT_FALSE(all[3].present) << "leads nowhere";
    const auto listed = ports.Choose(u"ttyUSB1"_s);
    EXPECT_TRUE(listed && listed->number == 6 && listed->byPath);
}

/// Port COM3 leads to the far end `line`, a pseudo-terminal; COM4 leads nowhere.
struct QtSerialPortTest : ::testing::Test {
    void SetUp() override {
        ASSERT_TRUE(QDir(config.path()).mkdir(u"ports"_s));
        ASSERT_TRUE(QFile::link(u"gone"_s, config.filePath(u"ports/com4"_s)));
        PlugIn();
    }
    void PlugIn() {
        int near = -1;
        ASSERT_EQ(::openpty(&line, &near, nullptr, nullptr, nullptr), 0);
        QFile::remove(com3);
        ASSERT_TRUE(QFile::link(QString::fromLocal8Bit(::ttyname(near)), com3));
        ::fchmod(near, 0666);
        ::close(near);
        driver = {};
        port.Configure(3);
        ASSERT_TRUE(port.Open());
    }
    ~QtSerialPortTest() override { ::close(line); }

    void Send(const QByteArray& bytes) const {
        ASSERT_EQ(::write(line, bytes.constData(), size_t(bytes.size())), bytes.size());
    }
    /// Waits as an exchange does; false after a second.
    bool WaitForInput(int need) {
        const EventClock::Instant deadline = clock.Now() + 1s;
        for (passes = 0; port.InputCount() < need && clock.Now() < deadline; ++passes) {
            clock.Yield(deadline);
        }
        return port.InputCount() >= need;
    }

    QTemporaryDir config;
    QString com3 = config.filePath(u"ports/com3"_s);
    int line = -1;
    ComPorts ports{config.path()};
    EventLoopClock clock;
    QtSerialPort port{ports};
    int passes = 0;
};

TEST_F(QtSerialPortTest, EveryByteValuePassesBothWaysUnchanged) {
    QByteArray all(256, 0), received(300, 0);
    std::iota(all.begin(), all.end(), '\0');
    termios mode{};  // both ends share it
    ::tcgetattr(line, &mode);
    EXPECT_EQ(::cfgetospeed(&mode), static_cast<speed_t>(B19200));
    EXPECT_EQ(mode.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), static_cast<tcflag_t>(CS8));
    ASSERT_TRUE(port.Write(all));
    received.resize(::read(line, received.data(), 300));  // before any yield
    EXPECT_EQ(received, all);
    QTimer::singleShot(5, [&] { Send(all); });  // the far end takes its time
    const EventClock::Instant begin = clock.Now();
    EXPECT_TRUE(WaitForInput(256));
    EXPECT_EQ(port.ReadAll(), all);
    EXPECT_TRUE(clock.Now() - begin < 500ms && passes < 20) << "bytes end a rest";
}

TEST_F(QtSerialPortTest, SetsRtsAndBorrowsTheLowLatencyMode) {
    EXPECT_TRUE(driver.rts);
    EXPECT_EQ(driver.flags, int(ASYNC_LOW_LATENCY));
    driver.flags |= ASYNC_SKIP_TEST;
    port.Close();
    EXPECT_EQ(driver.flags, int(ASYNC_SKIP_TEST)) << "put back";
    driver.flags = ASYNC_LOW_LATENCY;  // by the person's own choice
    ASSERT_TRUE(port.Open());
    port.Close();
    EXPECT_EQ(driver.flags, int(ASYNC_LOW_LATENCY));
}

TEST_F(QtSerialPortTest, KeepsDtrUpAndGivesABoardThatTheFirstOpeningResetTimeToStart) {
    port.Close();
    termios mode{};
    ::tcgetattr(line, &mode);
    mode.c_cflag |= HUPCL;  // as after plugging in
    ::tcsetattr(line, TCSANOW, &mode);
    pollfd board{line, POLLIN, 0};
    ASSERT_TRUE(port.Open());
    const EventClock::Instant reset = clock.Now();
    for (const auto& [earliest, latest] : {std::pair(1700ms, 1950ms), std::pair(0ms, 50ms)}) {
        port.Close();
        ::tcgetattr(line, &mode);
        EXPECT_EQ(mode.c_cflag & HUPCL, 0u);
        ASSERT_TRUE(port.Open());
        const EventClock::Instant since = earliest == 0ms ? clock.Now() : reset;
        ASSERT_TRUE(port.Write("S"));
        while (::poll(&board, 1, 0) == 0 && clock.Now() < since + 3s) {
            clock.Yield(clock.Now() + 5ms);
        }
        EXPECT_GE(clock.Now() - since, earliest);
        EXPECT_LE(clock.Now() - since, latest) << "the reply is awaited for two seconds";
        char byte = 0;
        EXPECT_TRUE(::read(line, &byte, 1) == 1 && byte == 'S');
    }
}

TEST_F(QtSerialPortTest, AFloodIsBoundedAndTheNextReplyStillComes) {
    for (int count = 0; count < 20; ++count) {
        Send(QByteArray(1000, 'x'));
        clock.Yield(clock.Now() + 10ms);
    }
    EXPECT_EQ(port.InputCount(), 4096);
    Send("still in the system's hands");
    port.DiscardInput();
    ASSERT_TRUE(port.Write("P"));
    Send("\r");
    ASSERT_TRUE(WaitForInput(1));
    EXPECT_EQ(port.ReadAll(), "\r");
}

TEST_F(QtSerialPortTest, AHangUpClosesThePortAtOnceAndTheLoopRestsAgain) {
    for (const bool byWrite : {false, true}) {
        ::close(std::exchange(line, -1));
        byWrite ? void(port.Write("S")) : clock.Yield(clock.Now() + 1s);
        EXPECT_FALSE(port.IsOpen());
        EXPECT_FALSE(port.Write("S"));
        EXPECT_EQ(port.LastError(), u"接続が切れました"_s);
        EXPECT_FALSE(WaitForInput(1));
        EXPECT_LT(passes, 20);
        PlugIn();
    }
}

TEST_F(QtSerialPortTest, ALockFileThatAKilledRunOfRootLeftIsNoHindrance) {
    port.Close();
    constexpr int ended = 0x7FFFFFFE;  // no process has so high a number
    const QString lock = u"/var/lock/LCK.."_s + QString(com3).replace(u'/', u'_');
    QFile left(lock);
    if (!left.open(QIODevice::WriteOnly)) {
        GTEST_SKIP() << "this user can't leave a lock file";
    }
    left.write(u"%1\ntolvex\n%2\n"_s.arg(ended).arg(QSysInfo::machineHostName()).toUtf8());
    left.close();
    testing::OpenToAll(config.path());
    {
        const testing::OrdinaryUser user;
        EXPECT_TRUE(port.Open()) << port.LastError().toStdString();
        port.Close();
    }
    QFile::remove(lock);
}

TEST_F(QtSerialPortTest, APortThatCannotBeOpenedStaysClosed) {
    QtSerialPort second(ports);
    for (const int number : {3, 4, 21}) {  // busy, dangling, none
        second.Configure(number);
        EXPECT_FALSE(second.Open() || second.IsOpen() || second.Write("S")) << number;
        EXPECT_FALSE(second.LastError().isEmpty()) << number;
        second.DiscardInput();
        EXPECT_TRUE(second.ReadAll().isEmpty());
    }
}

}  // namespace
}  // namespace tolvex
