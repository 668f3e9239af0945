// SPDX-License-Identifier: MIT
#include "app/workbench.h"

namespace tolvex {

Workbench::Workbench(const Surroundings& around)
    : connection(around.port, around.clock),
      commands(connection, around.status, errorFlag),
      detection(
          {connection, commands, device, around.settings, around.status, around.dialog, errorFlag}),
      portSelection({connection, commands, detection, around.settings, around.status,
                     around.dialogs, errorFlag}),
      listings(images, device, around.folders.listings, around.windows),
      files({images, fileNames, device, listings, around.windows, around.status, around.dialog,
             around.settings, around.dialogs, errorFlag, around.mainCaption}),
      patch(images, device, listings, around.dialog, errorFlag),
      context{commands,      connection,    images,       device,   listings,
              around.status, around.dialog, around.panel, errorFlag},
      selection({device, around.settings, around.panel, listings}),
      check(context),
      erase(context),
      verify(context, check),
      program(context, check, verify),
      read(context, check),
      lockFuse(context, check, detection),
      toolbar(context, {detection, check, erase, program, read, verify},
              {[this] { files.mnuFileOpen_Click(); }, [this] { files.mnuFileSaveAs_Click(); },
               [this] { files.mnuReLoad_Click(); }, around.showPortDialog}) {}

}  // namespace tolvex
