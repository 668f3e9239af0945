// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace tolvex {

/// A label of fixed size whose text is whole as far as possible: long texts wrap (if `setWordWrap`)
/// and the font shrinks as far as it must. What fits at no readable size ends in an ellipsis and
/// stands in the tool tip. What it shows is its accessible name.
class FittedLabel : public QLabel {
    Q_OBJECT

  public:
    /// `spoken` says what the label is for; it is the accessible name as long as there is no text.
    explicit FittedLabel(const QString& spoken, QWidget* parent = nullptr);

    /// Plain text; line breaks of any kind, a trailing one is dropped.
    void ShowText(const QString& text);
    QString WholeText() const { return text_; }

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void Fit();
    bool Fits(const QFont& font) const;
    QRect Room() const;

    QString spoken_;
    QString text_;
    QFont designFont_;
};

}  // namespace tolvex
