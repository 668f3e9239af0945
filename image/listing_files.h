// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

#include "base/program_state.h"
#include "base/user_interface.h"

namespace tolvex {

/// The listing of a memory of the device as its window shows it: the Flash's or the EEPROM's.
QString ShownListing(const MemoryImages& images, const CurrentDevice& device, bool flash);

/// The listings as files: `avrhex.txt`, `avreep.txt` and the verify report `avrvfy.txt`, each
/// loaded from its file into its window. A listing has a line per 16 bytes of the device's memory:
/// address (in words or bytes), hexadecimal values, and the same bytes as characters. Written lines
/// end with CRLF; the text that goes to a window has plain newlines.
///
/// Each call is false when its file can't be written or loaded.
class ListingFiles {
  public:
    /// Borrows `ui` and `state`. `folders` end in a separator. Each file goes to the first of them
    /// where it can be written, created where it is missing; when there is none, the message dialog
    /// says so, once a run, and without stopping whatever is under way. Without any folder nothing
    /// is kept and every call succeeds.
    ListingFiles(QStringList folders, UserInterface& ui, const ProgramState& state)
        : folders_(std::move(folders)), ui_(ui), state_(state) {}

    bool WriteFlashListing();
    bool ShowFlashListing();
    bool WriteEepromListing();
    bool ShowEepromListing();
    /// Replaces the verify report by `text`, whose lines end with CRLF.
    bool WriteVerifyReport(const QByteArray& text);
    /// Loads the report into the verify window and shows that.
    bool ShowVerifyReport();
    /// Deletes the three files. From then on nothing is written any more, so that an operation that
    /// the shutdown interrupted can't bring them back.
    void Retire();

    bool RefreshFlashListing() { return WriteFlashListing() && ShowFlashListing(); }
    bool RefreshEepromListing() { return WriteEepromListing() && ShowEepromListing(); }

  private:
    using ShowText = void (UserInterface::*)(const QString&);
    struct Listing {
        QString name;
        std::optional<QString> path = {};  ///< where it was written last
    };

    bool KeepsNothing() const { return folders_.isEmpty(); }
    bool Write(Listing& listing, const QByteArray& text);
    bool Show(const Listing& listing, ShowText show);
    void TellOnce();

    const QStringList folders_;
    UserInterface& ui_;
    const ProgramState& state_;
    Listing flash_{QStringLiteral("avrhex.txt")};
    Listing eeprom_{QStringLiteral("avreep.txt")};
    Listing report_{QStringLiteral("avrvfy.txt")};
    bool retired_ = false;
    bool told_ = false;
};

}  // namespace tolvex
