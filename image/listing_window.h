// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>
#include <QWidget>

namespace tolvex {

/// What sets the three listing windows apart.
struct ListingLook {
    const char* window;  ///< the window's name
    const char* box;     ///< the listing box's name
    QString caption;
    QString initialText;  ///< until the first listing
    int margin;           ///< twips kept free along the left and top edges
};

namespace listing_looks {
ListingLook Program();
ListingLook Eeprom();
ListingLook Verify();
}  // namespace listing_looks

/// A window filled by one read-only text box in a fixed-pitch font.
class ListingWindow : public QWidget {
    Q_OBJECT

  public:
    explicit ListingWindow(const ListingLook& look, QWidget* parent = nullptr);

    /// A caption too long for the title bar is cut in the middle, so that a path keeps its file's
    /// name.
    void SetCaption(const QString& caption);
    QString Caption() const { return caption_; }
    /// Where the frame around the window shows the caption; empty without a frame.
    QRect CaptionRoom() const;
    bool CaptionIsCut() const { return isCut_; }

    /// Replaces the whole text. One of the same length stays scrolled to where it was.
    void SetListing(const QString& text);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Form_Resize();

    void FitCaption();

    QString caption_;
    bool isCut_ = false;
    int margin_;
    QPlainTextEdit* box_;
};

}  // namespace tolvex
