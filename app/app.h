// SPDX-License-Identifier: MIT
#pragma once

// What the shell of the program gives to all others: the status bar, the settings, the folders.
#include "base/app_dir.h"
#include "base/settings.h"
#include "base/status_panels.h"
