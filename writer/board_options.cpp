// SPDX-License-Identifier: MIT
#include "writer/board_options.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QList<OptionRow> CommonOptions() {
    return {
        {{u"link"_s,
          u"Make PATH a symbolic link to the terminal; it is removed at the end. What is at PATH "
          "already is replaced only if it is the link of a board that has ended."_s,
          u"PATH"_s}},
        {{u"device"_s,
          u"The chip in the socket: its name, part number or list index. Default: that of the "
          "state file, else AT90S1200."_s,
          u"NAME|INDEX"_s}},
        {{u"empty"_s, u"No chip in the socket."_s}},
        {{u"state"_s, u"Keep the chip's contents in FILE from run to run."_s, u"FILE"_s}},
    };
}

}  // namespace

OptionParser::OptionParser(const QString& program, const QString& description,
                           const QList<OptionRow>& own)
    : program_(program), rows_(CommonOptions() + own) {
    parser_.setApplicationDescription(description);
    for (const OptionRow& row : rows_) {
        parser_.addOption(row.option);
    }
}

std::optional<OptionAnswer> OptionParser::Parse(const QStringList& arguments) {
    const QCommandLineOption help = parser_.addHelpOption();
    const QCommandLineOption version({u"v"_s, u"version"_s}, u"Print the version."_s);
    parser_.addOption(version);
    if (!parser_.parse(arguments)) {
        return OptionAnswer{parser_.errorText(), 2};
    }
    if (parser_.isSet(help)) {
        return OptionAnswer{parser_.helpText(), 0};
    }
    if (parser_.isSet(version)) {
        return OptionAnswer{u"%1 Version %2.%3.%4\n"_s.arg(program_)
                                .arg(TOLVEX_VERSION_MAJOR)
                                .arg(TOLVEX_VERSION_MINOR)
                                .arg(TOLVEX_VERSION_REVISION),
                            0};
    }
    if (const auto wrong = WrongUse()) {
        return OptionAnswer{*wrong, 2};
    }
    board_.link = Value(u"link"_s);
    board_.state = Value(u"state"_s);
    board_.empty = IsSet(u"empty"_s);
    if (const auto device = Value(u"device"_s)) {
        board_.device = FindChipModel(*device);
        if (!board_.device) {
            return OptionAnswer{u"--device: no such chip: "_s + *device, 2};
        }
    }
    return std::nullopt;
}

std::optional<QString> OptionParser::WrongUse() const {
    if (!parser_.positionalArguments().isEmpty()) {
        return u"unknown argument: "_s + parser_.positionalArguments().first();
    }
    for (const OptionRow& row : rows_) {
        if (const auto wrong = WrongValues(row)) {
            return wrong;
        }
    }
    if (IsSet(u"empty"_s) && (IsSet(u"device"_s) || IsSet(u"state"_s))) {
        return u"--empty goes with neither --device nor --state"_s;
    }
    return std::nullopt;
}

std::optional<QString> OptionParser::WrongValues(const OptionRow& row) const {
    const QString name = row.option.names().first();
    // Newer Qts warn when an option without a value is asked for it.
    const QStringList values = row.option.valueName().isEmpty() ? QStringList() : Values(name);
    if (values.contains(QString())) {
        return u"--%1 needs a value"_s.arg(name);
    }
    if (values.size() > 1 && !row.repeated) {
        return u"--%1 was given twice"_s.arg(name);
    }
    if (row.most && !values.isEmpty() && !Number(name)) {
        return u"--%1 is a number from 0 to %2"_s.arg(name).arg(*row.most);
    }
    return std::nullopt;
}

QStringList OptionParser::Given() const {
    QStringList names;
    for (const OptionRow& row : rows_) {
        const QString name = row.option.names().first();
        if (parser_.isSet(name)) {
            names << name;
        }
    }
    return names;
}

std::optional<QString> OptionParser::Value(const QString& name) const {
    const QStringList values = Values(name);
    return values.isEmpty() ? std::nullopt : std::optional(values.last());
}

std::optional<int> OptionParser::Number(const QString& name) const {
    for (const OptionRow& row : rows_) {
        if (row.option.names().first() == name && row.most) {
            bool isNumber = false;
            const int number = Value(name).value_or(QString()).toInt(&isNumber);
            return isNumber && number >= 0 && number <= *row.most ? std::optional(number)
                                                                  : std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace tolvex
