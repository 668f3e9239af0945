// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace tolvex {

/// Runs a modal dialog. It blocks the window that it belongs to and that window's other dialogs,
/// not the help; and it comes up above windows that stay on top, which would otherwise cover a
/// dialog that the person has to answer.
int ExecModal(QDialog& dialog);

/// What a new modal dialog belongs to: the one that is open, else `window`.
QWidget* ModalOwner(QWidget* window);

}  // namespace tolvex
