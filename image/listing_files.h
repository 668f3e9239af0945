// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "base/person.h"
#include "image/image.h"

namespace tolvex {

/// The listings as files: `avrhex.txt`, `avreep.txt` and the verify report `avrvfy.txt`. A listing
/// has a line per 16 bytes of the device's memory: address (in words or bytes), hexadecimal values,
/// and the same bytes as characters. Written lines end with CRLF; the text that goes to a window
/// has plain newlines.
class ListingFiles : public Listings {
  public:
    /// Borrowed. `folders` end in a separator. Each file goes to the first of them that takes it,
    /// created where it is missing; when none does, the message dialog says so, once a run, and
    /// without stopping whatever is under way. Without any folder nothing is kept and every call
    /// succeeds.
    struct Parts {
        const QStringList& folders;
        const Person& person;
        const ProgramState& state;
    };

    explicit ListingFiles(const Parts& parts)
        : folders_(parts.folders),
          person_(parts.person),
          images_(parts.state.images),
          device_(parts.state.device) {}

    bool WriteFlashListing() override;
    bool ShowFlashListing() override;
    bool WriteEepromListing() override;
    bool ShowEepromListing() override;
    bool WriteVerifyReport(const QByteArray& text) override;
    bool ShowVerifyReport() override;
    void Retire() override;

  private:
    using ShowText = void (ListingWindows::*)(const QString&);
    struct Listing {
        QString name;
        QString path = {};  ///< where it was written last; empty = nowhere
    };

    bool KeepsNothing() const { return folders_.isEmpty(); }
    bool Write(Listing& listing, const QByteArray& text);
    bool Show(const Listing& listing, ShowText show);
    void TellOnce();

    const QStringList folders_;
    const Person& person_;
    const MemoryImages& images_;
    const CurrentDevice& device_;
    Listing flash_{QStringLiteral("avrhex.txt")};
    Listing eeprom_{QStringLiteral("avreep.txt")};
    Listing report_{QStringLiteral("avrvfy.txt")};
    bool retired_ = false;
    bool told_ = false;
};

}  // namespace tolvex
