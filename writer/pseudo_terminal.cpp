// SPDX-License-Identifier: MIT
#include "writer/pseudo_terminal.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <utility>

#include "base/system_cause.h"
#include "base/text.h"
#include "writer/system_terminal.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// A pseudo-terminal that is gone, or that some other program has by now.
bool LeftByABoard(const QString& terminal) {
    if (!terminal.startsWith(u"/dev/pts/"_s) && !terminal.startsWith(u"/dev/ttys"_s)) {
        return false;
    }
    const int descriptor =
        ::open(QFile::encodeName(terminal).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return errno == ENOENT || errno == EIO;
    }
    const bool served = IsServed(descriptor);
    ::close(descriptor);
    return !served;
}

}  // namespace

std::optional<QString> PseudoTerminal::Open() {
    Close();
    if (!OpenTerminalPair(master_, slave_)) {
        return Text::tr("疑似端末を作れません: %1").arg(SystemCause(errno));
    }
    path_ = QFile::decodeName(::ttyname(slave_));
    ::fcntl(master_, F_SETFL, ::fcntl(master_, F_GETFL) | O_NONBLOCK);
    ::fcntl(master_, F_SETFD, FD_CLOEXEC);
    ::fcntl(slave_, F_SETFD, FD_CLOEXEC);
    MarkAsServed(slave_);
    return std::nullopt;
}

void PseudoTerminal::Close() {
    LetGo();
    if (master_ >= 0) {
        ::close(std::exchange(master_, -1));
    }
}

void PseudoTerminal::LetGo() {
    if (slave_ >= 0) {
        ::close(std::exchange(slave_, -1));
    }
}

QByteArray PseudoTerminal::Read() {
    char buffer[4096];
    const ssize_t count = ::read(master_, buffer, sizeof buffer);
    return count > 0 ? QByteArray(buffer, count) : QByteArray();
}

void PseudoTerminal::Write(const QByteArray& bytes) {
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const ssize_t count =
            ::write(master_, bytes.constData() + sent, static_cast<size_t>(bytes.size() - sent));
        if (count < 0 && errno != EINTR) {
            return;
        }
        sent += count > 0 ? count : 0;
    }
}

TerminalLink::~TerminalLink() {
    // Another board may have taken the link over in the meantime.
    if (link_ && QFile::symLinkTarget(*link_) == terminal_) {
        QFile::remove(*link_);
    }
}

std::optional<QString> TerminalLink::Lead(const QString& link, const QString& terminal) {
    const QFileInfo present(link);
    if (present.isSymLink()) {
        const QString target = present.symLinkTarget();
        // Left by one that was killed, it may lead to the number that came up again.
        const bool own = target == terminal || target == terminal_;
        if (!own && !LeftByABoard(target)) {
            return Text::tr("%1 は既に %2 を指しています").arg(link, target);
        }
        QFile::remove(link);
    } else if (present.exists()) {
        return Text::tr("%1 は既にあり、シンボリックリンクではありません").arg(link);
    }
    // Fails if something else has taken the place meanwhile.
    if (::symlink(QFile::encodeName(terminal).constData(), QFile::encodeName(link).constData()) !=
        0) {
        return Text::tr("リンク %1 を作れません: %2").arg(link, SystemCause(errno));
    }
    link_ = link;
    terminal_ = terminal;
    return std::nullopt;
}

}  // namespace tolvex
