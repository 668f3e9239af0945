// SPDX-License-Identifier: MIT
#include "writer/socket_file.h"

#include <QFile>

#include "base/text.h"
#include "writer/chip_state_file.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds kPause{20};

}  // namespace

std::optional<QString> SocketFile::Look() {
    const auto now = std::chrono::steady_clock::now();
    if (now - looked_ < kPause) {
        return std::nullopt;
    }
    looked_ = now;
    QFile file(path_);
    const QString text =
        file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
    if (text == text_) {
        return std::nullopt;
    }
    if (const auto reason = Save()) {
        return reason;
    }
    text_ = text;
    writer_.SetChip(nullptr);
    chip_.reset();
    return text.isEmpty() ? std::nullopt : Insert(text.section(u' ', 0, 0), text.section(u' ', 1));
}

std::optional<QString> SocketFile::Insert(const QString& name, const QString& state) {
    const ChipModel* const model = FindChipModel(name);
    if (!model) {
        return Text::tr("--socket: 知らないチップです: %1").arg(name);
    }
    state_ = state;
    if (!state.isEmpty() && QFile::exists(state)) {
        const LoadedChip loaded = LoadChip(state);
        if (const auto* reason = std::get_if<QString>(&loaded)) {
            return *reason;
        }
        chip_ = std::get<SimulatedChip>(loaded);
    } else {
        chip_.emplace(*model);
    }
    writer_.SetChip(&*chip_);
    return std::nullopt;
}

std::optional<QString> SocketFile::Save() const {
    return chip_ && !state_.isEmpty() ? SaveChip(*chip_, state_) : std::nullopt;
}

}  // namespace tolvex
