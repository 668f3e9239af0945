// SPDX-License-Identifier: MIT
#include "platform/com_ports.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

TEST(ComPorts, NumbersWithoutALinkMeanTheSystemsDevices) {
    const struct {
        int number;
        QString path;
    } cases[] = {
        {-1, u""_s},
        {0, u""_s},
        {1, u"/dev/ttyS0"_s},
        {4, u"/dev/ttyS3"_s},
        {5, u"/dev/ttyUSB0"_s},
        {12, u"/dev/ttyUSB7"_s},
        {13, u"/dev/ttyACM0"_s},
        {20, u"/dev/ttyACM7"_s},
        {21, u""_s},
    };
    QTemporaryDir config;
    for (const auto& c : cases) {
        EXPECT_EQ(ComPorts(config.path()).DevicePath(c.number), c.path) << c.number;
        EXPECT_EQ(ComPorts(u"/missing/folder/"_s).DevicePath(c.number), c.path) << c.number;
    }
}

TEST(ComPorts, ALinkWinsEvenWhenItLeadsNowhere) {
    const struct {
        const char* what;
        QString target;
        bool present;
    } cases[] = {
        {"device", u"/dev/null"_s, true},
        {"dangling", u"/dev/no-such-device"_s, false},
        {"relative", u"../real"_s, true},
        {"relative and dangling", u"../gone"_s, false},
    };
    for (const auto& c : cases) {
        QTemporaryDir config;
        ASSERT_TRUE(QDir(config.path()).mkdir(u"ports"_s));
        QFile real(config.filePath(u"real"_s));
        ASSERT_TRUE(real.open(QIODevice::WriteOnly));
        const QString link = config.filePath(u"ports/com3"_s);
        const ComPorts ports(config.path() + u'/');
        EXPECT_EQ(ports.DevicePath(3), u"/dev/ttyS2"_s) << c.what;
        ASSERT_TRUE(QFile::link(c.target, link));

        EXPECT_EQ(ports.DevicePath(3), link) << c.what;
        EXPECT_EQ(ports.DevicePath(2), u"/dev/ttyS1"_s) << c.what;
        const QList<ComPort> all = ports.All();
        ASSERT_EQ(all.size(), kComPortCount);
        EXPECT_EQ(all[2].number, 3);
        EXPECT_EQ(all[2].devicePath, link) << c.what;
        EXPECT_EQ(all[2].present, c.present) << c.what;
    }
}

}  // namespace
}  // namespace tolvex
