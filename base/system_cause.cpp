// SPDX-License-Identifier: MIT
#include "base/system_cause.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include "base/text.h"

namespace tolvex {

namespace {

struct Row {
    int error;
    const char* text;
};

// clang-format off
constexpr Row kRows[] = {
    {ENOENT,       QT_TRANSLATE_NOOP("Tolvex", "ファイルかフォルダがありません")},
    {ENODEV,       QT_TRANSLATE_NOOP("Tolvex", "デバイスがありません")},
    {ENXIO,        QT_TRANSLATE_NOOP("Tolvex", "デバイスがありません")},
    {EACCES,       QT_TRANSLATE_NOOP("Tolvex", "権限がありません")},
    {EPERM,        QT_TRANSLATE_NOOP("Tolvex", "権限がありません")},
    {EROFS,        QT_TRANSLATE_NOOP("Tolvex", "読み出し専用です")},
    {EISDIR,       QT_TRANSLATE_NOOP("Tolvex", "フォルダです")},
    {ENOTDIR,      QT_TRANSLATE_NOOP("Tolvex", "途中の名前がフォルダではありません")},
    {EEXIST,       QT_TRANSLATE_NOOP("Tolvex", "既にあります")},
    {EBUSY,        QT_TRANSLATE_NOOP("Tolvex", "使用中です")},
    {ENOSPC,       QT_TRANSLATE_NOOP("Tolvex", "ディスクの空きがありません")},
    {EFBIG,        QT_TRANSLATE_NOOP("Tolvex", "大きすぎます")},
    {EIO,          QT_TRANSLATE_NOOP("Tolvex", "入出力エラーです")},
    {ENAMETOOLONG, QT_TRANSLATE_NOOP("Tolvex", "名前が長すぎます")},
    {ELOOP,        QT_TRANSLATE_NOOP("Tolvex", "リンクが循環しています")},
    {EMFILE,       QT_TRANSLATE_NOOP("Tolvex", "開いているファイルが多すぎます")},
    {ENFILE,       QT_TRANSLATE_NOOP("Tolvex", "開いているファイルが多すぎます")},
};
// clang-format on

}  // namespace

QString SystemCause(int error) {
    const auto* const row = std::ranges::find(kRows, error, &Row::error);
    if (row != std::end(kRows)) {
        return Text::tr(row->text);
    }
    return error == 0 ? Text::tr("システムが受け付けませんでした")
                      : Text::tr("システムのエラー %1").arg(error);
}

}  // namespace tolvex
