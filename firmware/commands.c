// SPDX-License-Identifier: MIT
#include "commands.h"

#include <stdbool.h>
#include <stddef.h>

#include "chip.h"
#include "line.h"
#include "pins.h"
#include "ticks.h"

#define ARGUMENT_TICKS (1000u * TICKS_PER_MS)

static uint8_t arguments[2];
static uint16_t address;  // a Flash word or an EEPROM byte

static void Done(void) {
    LineWrite('\r');
}

static void Refuse(void) {
    LineWrite('?');
}

static void DoneIf(bool confirmed) {
    if (confirmed) {
        Done();
    } else {
        Refuse();
    }
}

static void Say(const char* text) {
    while (*text != '\0') {
        LineWrite((uint8_t)*text++);
    }
}

static void Identify(void) {
    Say("AVR ISP");
}

static void TellFirmwareVersion(void) {
    Say("39");
}

static void TellBoardVersion(void) {
    Say("10");
}

static void SelectDevice(void) {
    ChipSelect(arguments[0]);
    Done();
}

/// Without a chip it is done too: the PC reads the signature next, and that tells it so.
static void EnterProgramming(void) {
    ChipEnter();
    Done();
}

static void LeaveProgramming(void) {
    ChipLeave();
    Done();
}

/// Allowed at any time: the PC looks what is in the socket before it enters programming mode.
static void ReadSignature(void) {
    const bool wasHeld = ChipIsHeld();
    uint8_t bytes[3];
    if (!wasHeld) {
        ChipEnter();
    }
    for (uint8_t i = 0; i < sizeof bytes; ++i) {
        bytes[i] = ChipReadSignature(i);
    }
    if (!wasHeld) {
        ChipLeave();
    }
    for (uint8_t i = sizeof bytes; i > 0; --i) {
        LineWrite(bytes[i - 1]);
    }
}

static void SetAddress(void) {
    address = (uint16_t)(arguments[0] << 8 | arguments[1]);
    Done();
}

static void ReadWord(void) {
    const uint8_t high = ChipReadFlash(address, true);
    const uint8_t low = ChipReadFlash(address, false);
    ++address;
    LineWrite(high);
    LineWrite(low);
}

static void WriteLowByte(void) {
    DoneIf(ChipWriteFlash(address, false, arguments[0]));
}

static void WriteHighByte(void) {
    const bool confirmed = ChipWriteFlash(address, true, arguments[0]);
    ++address;
    DoneIf(confirmed);
}

static void ReadData(void) {
    LineWrite(ChipReadEeprom(address));
}

static void WriteData(void) {
    DoneIf(ChipWriteEeprom(address, arguments[0]));
}

static void Erase(void) {
    DoneIf(ChipErase());
}

static void WriteFuses(void) {
    DoneIf(ChipWriteFuses(arguments[0]));
}

static void WriteLock(void) {
    DoneIf(ChipWriteLock(arguments[0]));
}

static void ReadLockAndFuse(void) {
    LineWrite(ChipReadLock());
}

static void ReadFuses(void) {
    LineWrite(ChipReadFuses());
}

static void LedOn(void) {
    PinsSetLed(true);
    Done();
}

static void LedOff(void) {
    PinsSetLed(false);
    Done();
}

static const struct Command {
    char letter;
    uint8_t argumentCount;
    bool onlyWhileProgramming;
    void (*carryOut)(void);
} kCommands[] = {
    {'S', 0, false, Identify},
    {'V', 0, false, TellFirmwareVersion},
    {'v', 0, false, TellBoardVersion},
    {'T', 2, false, SelectDevice},  // the second byte is always 0
    {'P', 0, false, EnterProgramming},
    {'L', 0, false, LeaveProgramming},
    {'s', 0, false, ReadSignature},
    {'A', 2, false, SetAddress},
    {'R', 0, true, ReadWord},
    {'c', 1, true, WriteLowByte},
    {'C', 1, true, WriteHighByte},
    {'d', 0, true, ReadData},
    {'D', 1, true, WriteData},
    {'e', 0, true, Erase},
    {'f', 1, true, WriteFuses},
    {'l', 1, true, WriteLock},
    {'F', 0, true, ReadLockAndFuse},
    {'r', 0, true, ReadFuses},
    {'x', 0, false, LedOn},
    {'y', 0, false, LedOff},
};

static const struct Command* Find(uint8_t letter) {
    for (uint8_t i = 0; i < sizeof kCommands / sizeof kCommands[0]; ++i) {
        if (kCommands[i].letter == (char)letter) {
            return &kCommands[i];
        }
    }
    return NULL;
}

static bool ReadArguments(uint8_t count) {
    for (uint8_t i = 0; i < count; ++i) {
        if (LineRead(&arguments[i], ARGUMENT_TICKS) != kLineByte) {
            return false;
        }
    }
    return true;
}

void CommandsCarryOut(uint8_t letter) {
    const struct Command* command = Find(letter);
    if (command != NULL && !ReadArguments(command->argumentCount)) {
        return;
    }
    if (command == NULL || (command->onlyWhileProgramming && !ChipIsHeld())) {
        Refuse();
        return;
    }
    command->carryOut();
}
