// SPDX-License-Identifier: MIT
#include "workbench/workbench.h"

namespace tolvex {

Workbench::Workbench(const Parts& parts)
    : person(parts.person),
      connection(parts.port, parts.clock),
      serialCommands(connection, person.status, state.errorFlag),
      commands(parts.decorate ? parts.decorate(serialCommands) : serialCommands),
      detection({.connection = connection,
                 .commands = commands,
                 .settings = parts.settings,
                 .person = person,
                 .state = state}),
      portSelection({.connection = connection,
                     .commands = commands,
                     .detection = detection,
                     .settings = parts.settings,
                     .person = person,
                     .state = state}),
      listings({.folders = parts.folders.listings, .person = person, .state = state}),
      files({.listings = listings,
             .settings = parts.settings,
             .person = person,
             .state = state,
             .mainCaption = parts.mainCaption,
             .breath = parts.breath}),
      patch({.listings = listings, .person = person, .state = state}),
      selection(
          {.settings = parts.settings, .listings = listings, .person = person, .state = state}),
      check(ChipParts()),
      erase(ChipParts()),
      verify(ChipParts(), check),
      program(ChipParts(), check, verify),
      read(ChipParts(), check),
      lockFuse(ChipParts(), check, detection),
      toolbar(ChipParts(),
              {.detection = detection,
               .check = check,
               .erase = erase,
               .program = program,
               .read = read,
               .verify = verify},
              {.openFiles = [this] { files.mnuFileOpen_Click(); },
               .saveFiles = [this] { files.mnuFileSaveAs_Click(); },
               .reloadFiles = [this] { files.mnuReLoad_Click(); },
               .selectPort = parts.showPortDialog}) {}

ChipOperation::Parts Workbench::ChipParts() {
    return {.writer = commands,
            .waiting = connection,
            .listings = listings,
            .person = person,
            .state = state};
}

}  // namespace tolvex
