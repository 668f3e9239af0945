// SPDX-License-Identifier: MIT
#include "platform/window_dialogs.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// What assistive tools hold of the cells of a dialog's views goes before the views' model does; Qt
/// would keep it, and end in a crash when the program is closed.
void ForgetCells(QDialog& dialog) {
    for (QAbstractItemView* view : dialog.findChildren<QAbstractItemView*>()) {
        if (QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(view)) {
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(interface));
        }
    }
}

/// Shows a dialog and says whether it was accepted. The dialog is gone afterwards, also when the
/// program closed its parent (and it with the parent) meanwhile; `read` runs before that, and not
/// at all in that case.
template <typename Dialog, typename Read>
bool Ask(Dialog* dialog, Read read) {
    const QPointer<Dialog> guard(dialog);
    ExecModal(*dialog);
    if (guard.isNull()) {
        return false;
    }
    const bool accepted = read(*dialog);
    ForgetCells(*dialog);
    delete dialog;
    return accepted;
}

class FileDialog : public QFileDialog {
  public:
    using QFileDialog::QFileDialog;

  protected:
    void accept() override {
        static const QRegularExpression wildcard(u"[*?]"_s);
        const QStringList chosen = selectedFiles();
        if (!chosen.isEmpty() && QFileInfo(chosen.first()).fileName().contains(wildcard)) {
            if (auto* name = findChild<QLineEdit*>()) {
                name->setFocus();
                name->selectAll();
            }
            return;
        }
        QFileDialog::accept();
    }
};

/// The requested folder, else the initial name's own, else the current one.
void SetStart(QFileDialog& dialog, const FileDialogRequest& request) {
    const QFileInfo initial(request.initialName);
    QString start = QDir::currentPath();
    if (!request.directory.isEmpty() && QFileInfo(request.directory).isDir()) {
        start = QDir(request.directory).absolutePath();
    } else if (initial.isAbsolute() && initial.dir().exists()) {
        start = initial.path();
    }
    dialog.setDirectory(start);
    if (!request.initialName.isEmpty()) {
        dialog.selectFile(initial.fileName());
    }
}

void SetTexts(QFileDialog& dialog, const QString& accept) {
    dialog.setLabelText(QFileDialog::LookIn, Text::tr("場所:"));
    dialog.setLabelText(QFileDialog::FileName, Text::tr("ファイル名:"));
    dialog.setLabelText(QFileDialog::FileType, Text::tr("ファイルの種類:"));
    dialog.setLabelText(QFileDialog::Accept, accept);
    dialog.setLabelText(QFileDialog::Reject, Text::tr("キャンセル"));
}

/// `path` with the first of `suffixes` ("hex;rom") when its name has none. A file that is to be
/// opened may have none.
QString WithDefaultSuffix(const QString& path, const QString& suffixes,
                          QFileDialog::AcceptMode mode) {
    const QString suffix = suffixes.section(u';', 0, 0);
    const QFileInfo file(path);
    if (suffix.isEmpty() || !file.suffix().isEmpty() ||
        (mode == QFileDialog::AcceptOpen && file.exists())) {
        return path;
    }
    return path.endsWith(u'.') ? path + suffix : path + u'.' + suffix;
}

std::optional<QString> AskFile(QWidget* parent, const FileDialogRequest& request,
                               QFileDialog::AcceptMode mode) {
    auto* dialog = new FileDialog(parent, request.title);
    dialog->setObjectName(u"fileDialog"_s);
    const QString system = QGuiApplication::platformName();
    dialog->setOption(QFileDialog::DontUseNativeDialog,
                      system != u"windows"_s && system != u"cocoa"_s);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setViewMode(QFileDialog::List);  // names whole; details are a click away
    dialog->setAcceptMode(mode);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setNameFilters(NameFilters(request.filter));
    SetStart(*dialog, request);
    SetTexts(*dialog, mode == QFileDialog::AcceptOpen ? Text::tr("開く") : Text::tr("保存"));

    std::optional<QString> answer;
    Ask(dialog, [&](const FileDialog& shown) {
        const QStringList chosen = shown.selectedFiles();
        if (shown.result() != QDialog::Accepted || chosen.isEmpty()) {
            return false;
        }
        answer = WithDefaultSuffix(chosen.first(), request.defaultSuffix, mode);
        return true;
    });
    return answer;
}

QMessageBox::Icon IconOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Stop:
            return QMessageBox::Critical;
        case BoxIcon::Information:
            return QMessageBox::Information;
        case BoxIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox* NewBox(QWidget* parent, BoxIcon icon, const QString& title, const QString& text) {
    auto* box = new QMessageBox(IconOf(icon), title, text, QMessageBox::NoButton, parent);
    box->setObjectName(u"messageBox"_s);
    box->setTextFormat(Qt::PlainText);  // a file name may look like markup
    QPushButton* ok = box->addButton(u"OK"_s, QMessageBox::AcceptRole);
    ok->setObjectName(u"Command_ok"_s);
    box->setDefaultButton(ok);
    box->setEscapeButton(ok);
    return box;
}

}  // namespace

int ExecModal(QDialog& dialog) {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowFlags().testFlag(Qt::WindowStaysOnTopHint)) {
            dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
        }
    }
    dialog.setWindowModality(dialog.parentWidget() == nullptr ? Qt::ApplicationModal
                                                              : Qt::WindowModal);
    return dialog.exec();
}

QWidget* ModalOwner(QWidget* window) {
    QWidget* open = QApplication::activeModalWidget();
    return open != nullptr ? open : window;
}

QStringList NameFilters(const QString& pairs) {
    const QStringList parts = pairs.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns;
        for (const QString& part : parts[i + 1].split(u';', Qt::SkipEmptyParts)) {
            const QString pattern = part.trimmed();
            if (pattern == u"*.*") {  // names without a dot count as well
                patterns << u"*"_s;
            } else {
                patterns << pattern.toLower() << pattern.toUpper();
            }
        }
        patterns.removeDuplicates();
        if (!patterns.isEmpty()) {
            filters << u"%1 (%2)"_s.arg(parts[i], patterns.join(u' '));
        }
    }
    return filters;
}

WindowDialogs::WindowDialogs(std::function<QWidget*()> owner) : owner_(std::move(owner)) {}

std::optional<QString> WindowDialogs::AskOpenFile(const FileDialogRequest& request) {
    return AskFile(ModalOwner(owner_()), request, QFileDialog::AcceptOpen);
}

std::optional<QString> WindowDialogs::AskSaveFile(const FileDialogRequest& request) {
    return AskFile(ModalOwner(owner_()), request, QFileDialog::AcceptSave);
}

void WindowDialogs::ShowBox(BoxIcon icon, const QString& title, const QString& text) {
    Ask(NewBox(ModalOwner(owner_()), icon, title, text), [](const QMessageBox&) { return true; });
}

bool WindowDialogs::AskOkCancel(const QString& title, const QString& text) {
    QMessageBox* box = NewBox(ModalOwner(owner_()), BoxIcon::Information, title, text);
    QPushButton* cancel = box->addButton(Text::tr("キャンセル"), QMessageBox::RejectRole);
    cancel->setObjectName(u"Command_cancel"_s);
    box->setEscapeButton(cancel);
    return Ask(box, [](const QMessageBox& shown) {
        return shown.clickedButton() == shown.defaultButton();
    });
}

}  // namespace tolvex
