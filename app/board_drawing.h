// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QSvgRenderer>
#include <QWidget>

namespace tolvex {

/// The writer board from above, with the wiring to add: red lines to the 8-pin socket, blue ones
/// to a 28-pin socket beside the board. Every text is a label of its own; the five socket names
/// share the object name "Label1". The drawing grows with the font, so that the pin names stand
/// beside the connector's pins at any size, and it carries its own background colours.
class BoardDrawing : public QWidget {
    Q_OBJECT

  public:
    /// `pinNames`: the connector's six pins, one a line, top first.
    explicit BoardDrawing(const QString& pinNames, QWidget* parent = nullptr);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void AddLabels(const QString& pinNames);
    void PlaceLabels();

    QList<QLabel*> names_;  ///< in the order of the table of names
    QLabel* label4_;        ///< the pin names
    QSvgRenderer drawing_;
    double scale_ = 1;  ///< pixels for one unit of the drawing
};

}  // namespace tolvex
