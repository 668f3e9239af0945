// SPDX-License-Identifier: MIT
#include "app/japanese_texts.h"

#include <QCoreApplication>
#include <QHash>
#include <QLibraryInfo>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Qt uses the same text for the same thing in several places, so the place doesn't matter.
constexpr std::pair<const char*, const char16_t*> kRows[] = {
    // Buttons
    {"OK", u"OK"},
    {"&OK", u"OK(&O)"},
    {"Cancel", u"キャンセル"},
    {"&Cancel", u"キャンセル(&C)"},
    {"&Yes", u"はい(&Y)"},
    {"&No", u"いいえ(&N)"},
    {"Close", u"閉じる"},
    {"&Close", u"閉じる(&C)"},
    {"Open", u"開く"},
    {"&Open", u"開く(&O)"},
    {"Save", u"保存"},
    {"&Save", u"保存(&S)"},
    {"Help", u"ヘルプ"},
    // Context menus of text
    {"&Undo", u"元に戻す(&U)"},
    {"&Redo", u"やり直し(&R)"},
    {"Cu&t", u"切り取り(&T)"},
    {"&Copy", u"コピー(&C)"},
    {"Copy &Link Location", u"リンクのアドレスをコピー(&L)"},
    {"&Paste", u"貼り付け(&P)"},
    {"Delete", u"削除"},
    {"Select All", u"すべて選択"},
    // Child windows
    {"Menu", u"メニュー"},
    {"&Restore", u"元のサイズに戻す(&R)"},
    {"Restore", u"元のサイズに戻す"},
    {"Restore Down", u"元のサイズに戻す"},
    {"&Move", u"移動(&M)"},
    {"&Size", u"サイズ変更(&S)"},
    {"Mi&nimize", u"最小化(&N)"},
    {"Minimize", u"最小化"},
    {"Ma&ximize", u"最大化(&X)"},
    {"Maximize", u"最大化"},
    {"Stay on &Top", u"常に手前に表示(&T)"},
    {"Shade", u"たたむ"},
    {"Unshade", u"広げる"},
    {"(Untitled)", u"(無題)"},
    // Scroll bars
    {"Scroll here", u"ここにスクロール"},
    {"Top", u"先頭"},
    {"Bottom", u"末尾"},
    {"Left edge", u"左端"},
    {"Right edge", u"右端"},
    {"Page up", u"1 ページ上へ"},
    {"Page down", u"1 ページ下へ"},
    {"Page left", u"1 ページ左へ"},
    {"Page right", u"1 ページ右へ"},
    {"Scroll up", u"上へスクロール"},
    {"Scroll down", u"下へスクロール"},
    {"Scroll left", u"左へスクロール"},
    {"Scroll right", u"右へスクロール"},
    // File dialog
    {"Look in:", u"場所:"},
    {"Back", u"戻る"},
    {"Go back", u"前のフォルダに戻る"},
    {"Forward", u"進む"},
    {"Go forward", u"次のフォルダに進む"},
    {"Parent Directory", u"親フォルダ"},
    {"Go to the parent directory", u"1 つ上のフォルダへ移動"},
    {"Create New Folder", u"新しいフォルダ"},
    {"Create a New Folder", u"新しいフォルダを作る"},
    {"List View", u"一覧"},
    {"Change to list view mode", u"一覧で表示"},
    {"Detail View", u"詳細"},
    {"Change to detail view mode", u"詳細を表示"},
    {"Sidebar", u"サイドバー"},
    {"List of places and bookmarks", u"場所とブックマークの一覧"},
    {"Files", u"ファイル"},
    {"Files of type:", u"ファイルの種類:"},
    {"File &name:", u"ファイル名(&N):"},
    {"Directory:", u"フォルダ:"},
    {"Directories", u"フォルダ"},
    {"&Choose", u"選択(&C)"},
    {"Save As", u"名前を付けて保存"},
    {"Find Directory", u"フォルダの検索"},
    {"&Rename", u"名前の変更(&R)"},
    {"&Delete", u"削除(&D)"},
    {"Show &hidden files", u"隠しファイルを表示(&H)"},
    {"&New Folder", u"新しいフォルダ(&N)"},
    {"New Folder", u"新しいフォルダ"},
    {"Remove", u"一覧から外す"},
    {"Show ", u"表示 : "},
    {"Recent Places", u"最近使った場所"},
    {"All Files (*)", u"すべてのファイル (*)"},
    {"Computer", u"コンピュータ"},
    {"My Computer", u"コンピュータ"},
    {"Name", u"名前"},
    {"Size", u"サイズ"},
    {"Type", u"種類"},
    {"Kind", u"種類"},
    {"Date Modified", u"更新日時"},
    {"Drive", u"ドライブ"},
    {"File", u"ファイル"},
    {"%1 File", u"%1 ファイル"},
    {"Folder", u"フォルダ"},
    {"File Folder", u"フォルダ"},
    {"Alias", u"エイリアス"},
    {"Shortcut", u"ショートカット"},
    {"Unknown", u"不明"},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     u"%1\nフォルダが見つかりません。\n名前を確かめてください。"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     u"%1\nファイルが見つかりません。\n名前を確かめてください。"},
    {"'%1' is write protected.\nDo you want to delete it anyway?",
     u"'%1' は書き込みが禁止されています。\n削除しますか？"},
    {"Are you sure you want to delete '%1'?", u"'%1' を削除しますか？"},
    {"Could not delete directory.", u"フォルダを削除できません。"},
    {"Invalid filename", u"使えない名前"},
    {"<b>The name \"%1\" cannot be used.</b><p>Try using another name, with fewer characters or no "
     "punctuation marks.",
     u"<b>名前 \"%1\" は使えません。</b><p>短い名前か、記号のない名前にしてください。"},
    {"Open the combo box selection popup", u"一覧を開く"},
    // What assistive tools offer
    {"Press", u"押す"},
    {"Toggle", u"切り替え"},
    {"Check", u"チェック"},
    {"Uncheck", u"チェックを外す"},
    {"ShowMenu", u"メニューを表示"},
    {"SetFocus", u"フォーカスを移す"},
};

}  // namespace

JapaneseTexts::JapaneseTexts() {
    if (catalogue_.load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&catalogue_);
    }
    QCoreApplication::installTranslator(this);  // asked first
}

QString JapaneseTexts::translate(const char*, const char* source, const char*, int) const {
    static const QHash<QByteArray, QString> kTexts = [] {
        QHash<QByteArray, QString> texts;
        for (const auto& [text, japanese] : kRows) {
            texts.insert(text, QString::fromUtf16(japanese));
        }
        return texts;
    }();
    return kTexts.value(source);
}

}  // namespace tolvex
