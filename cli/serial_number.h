// SPDX-License-Identifier: MIT
#pragma once

#include "base/chip_data.h"
#include "cli/result.h"

namespace tolvex {

/// Where the number of a chip stands in its memories, and how: "eeprom:0x10=u16le",
/// "flash:0x3FE=text:SN%06d".
struct SerialPlace {
    bool flash = false;
    int address = 0;  ///< of the first byte, as in a HEX file
    int bytes = 0;    ///< of a binary number; 0 = a text
    bool bigEndian = false;
    QString before = {}, after = {};  ///< of a text, what stands around the number
    int digits = 0;                   ///< of a text, with zeros in front; 0 = as many as it takes
};

/// Numbers u8, u16le, u16be, u32le, u32be; texts of printable ASCII with one %d or %06d.
Result<SerialPlace> ParseSerialPlace(const QString& text);
/// What is put into the memory; nothing when the number does not fit.
std::optional<QByteArray> SerialBytes(const SerialPlace& place, quint32 number);
/// For a person: "12", "SN000012".
QString SerialText(const SerialPlace& place, quint32 number);
/// Puts the number into the image of the device's memory, whatever the file has there; false when
/// it does not fit.
bool PutSerial(const SerialPlace& place, quint32 number, const CurrentDevice& device,
               MemoryImages& images);

/// The next number in a small text file, 1 where there is none yet. Whoever uses the same file,
/// also at the same time, gets every number once.
class SerialNumbers {
  public:
    explicit SerialNumbers(const QString& path) : path_(path) {}

    const QString& Path() const { return path_; }
    Result<quint32> Next() const;
    /// Takes the next number. On return the disk has that it is taken, so it is given to nobody
    /// again, whatever happens now.
    Result<quint32> Take() const;

  private:
    QString path_;
};

}  // namespace tolvex
