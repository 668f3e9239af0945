// SPDX-License-Identifier: MIT
#include "widgets/modal.h"

#include <QApplication>

namespace tolvex {

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

}  // namespace tolvex
