// SPDX-License-Identifier: MIT
#include "writer/writer_options.h"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

ParsedOptions Parse(const QString& line) {
    return ParseOptions(QStringList(u"tolvex-writer"_s) + line.split(u' ', Qt::SkipEmptyParts));
}

TEST(WriterOptions, AreReadFromTheCommandLine) {
    const auto plain = Parse({}).options;
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->device, nullptr);
    EXPECT_FALSE(plain->empty);
    EXPECT_EQ(plain->firmware, u"3.9"_s);
    EXPECT_EQ(plain->baud, 19200);
    EXPECT_TRUE(plain->faults.isEmpty());

    const auto full = Parse(
                          u"--link l --device 8 --firmware 4.0 --baud 0 --state s --log g "
                          "--fault 3:silent --fault 12:hang-up"_s)
                          .options;
    ASSERT_TRUE(full);
    EXPECT_EQ(full->link + full->state + full->log, u"lsg"_s);
    EXPECT_EQ(full->device, FindChipModel(u"AT90S8515"));
    EXPECT_EQ(full->firmware, u"4.0"_s);
    EXPECT_EQ(full->baud, 0);
    ASSERT_EQ(full->faults.size(), 2);
    EXPECT_EQ(full->faults[0].command, 3);
    EXPECT_EQ(full->faults[0].kind, FaultKind::Silent);
    EXPECT_EQ(full->faults[1].command, 12);
    EXPECT_EQ(full->faults[1].kind, FaultKind::HangUp);
    EXPECT_TRUE(Parse(u"--empty"_s).options->empty);
}

TEST(WriterOptions, SayWhatIsWrong) {
    struct Case {
        QString line;
        QString text;
    };
    const Case cases[] = {
        {u"--device AT90S9999"_s, u"--device: no such chip: AT90S9999"_s},
        {u"--device 10"_s, u"--device: no such chip: 10"_s},
        {u"--empty --device 1"_s, u"--empty goes with neither --device nor --state"_s},
        {u"--empty --state s"_s, u"--empty goes with neither --device nor --state"_s},
        {u"--firmware 39"_s, u"--firmware is a digit, a point and a digit, such as 3.9"_s},
        {u"--firmware x.y"_s, u"--firmware is a digit, a point and a digit, such as 3.9"_s},
        {u"--baud -1"_s, u"--baud is a number from 0 to 4000000"_s},
        {u"--baud fast"_s, u"--baud is a number from 0 to 4000000"_s},
        {u"--fault silent"_s, u"--fault is K:KIND, such as 3:silent, and not silent"_s},
        {u"--fault 0:silent"_s, u"--fault is K:KIND, such as 3:silent, and not 0:silent"_s},
        {u"--fault 3:slow"_s, u"--fault is K:KIND, such as 3:silent, and not 3:slow"_s},
        {u"--fault 3"_s, u"--fault is K:KIND, such as 3:silent, and not 3"_s},
        {u"blink.hex"_s, u"unknown argument: blink.hex"_s},
    };
    for (const Case& c : cases) {
        const ParsedOptions parsed = Parse(c.line);
        EXPECT_FALSE(parsed.options) << c.line.toStdString();
        EXPECT_EQ(parsed.text, c.text);
        EXPECT_EQ(parsed.status, 2) << c.line.toStdString();
    }
    EXPECT_EQ(Parse(u"--colour red"_s).status, 2);
    EXPECT_FALSE(Parse(u"--link"_s).options) << "a value is missing";
    EXPECT_EQ(Parse(u"--help"_s).status, 0);
}

}  // namespace
}  // namespace tolvex
