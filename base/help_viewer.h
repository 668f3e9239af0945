// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

class HelpViewer {
  public:
    virtual ~HelpViewer() = default;
    /// Opens the help file at its beginning, with its contents list. A file that can't be read is
    /// reported to the person by the viewer itself.
    virtual void ShowContents(const QString& file) = 0;
};

}  // namespace tolvex
