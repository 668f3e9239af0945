// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace tolvex {

/// A label of fixed size whose text is always whole: long texts wrap (if `setWordWrap`) and the
/// font shrinks as far as it must. What fits at no readable size is cut and stands in the tool tip.
class FittedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit FittedLabel(QWidget* parent = nullptr);

    /// Plain text; line breaks of any kind, a trailing one is dropped.
    void ShowText(const QString& text);
    QString WholeText() const { return text_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

  private:
    void Fit();
    bool Fits(const QFont& font) const;

    QString text_;
    QFont designFont_;
};

}  // namespace tolvex
