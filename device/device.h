// SPDX-License-Identifier: MIT
#pragma once

#include "base/device_record.h"
#include "base/message_dialog.h"
#include "base/setting_panel.h"
#include "device/catalogue.h"
#include "device/chip_results.h"
