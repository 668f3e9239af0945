// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>

/// The keys of the object that --json prints; docs/cli.md says what each holds.
namespace tolvex::report {

using Key = QLatin1StringView;

// clang-format off
inline constexpr Key Command{"command"}, Device{"device"}, Port{"port"};
inline constexpr Key ExitStatus{"exitStatus"}, Messages{"messages"}, Error{"error"};
inline constexpr Key Writer{"writer"}, Signature{"signature"}, Part{"part"};
inline constexpr Key Plan{"plan"}, Written{"written"}, Erased{"erased"};
inline constexpr Key Verified{"verified"}, Differences{"differences"};
inline constexpr Key Blank{"blank"}, Listings{"listings"}, Chips{"chips"};
inline constexpr Key Files{"files"}, Backup{"backup"};
inline constexpr Key Findings{"findings"}, Checked{"checked"};
inline constexpr Key Options{"options"}, Confirmed{"confirmed"};
inline constexpr Key Ports{"ports"}, Devices{"devices"};
inline constexpr Key Fix{"fix"}, RoundTripMilliseconds{"roundTripMilliseconds"};
inline constexpr Key Wiring{"wiring"}, Hex{"hex"}, Burn{"burn"};
inline constexpr Key Help{"help"}, Version{"version"};
// clang-format on

}  // namespace tolvex::report
