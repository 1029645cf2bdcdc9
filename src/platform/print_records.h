// The layout of the records that the print setup dialog takes and gives back, and access to their
// bytes: little endian, texts of one byte per character. The print setup fills them, both platforms
// read and change them.
//
//   PRINTDLG  66   0 lStructSize 4   4 hwndOwner 4   8 hDevMode 4   12 hDevNames 4   16 hDC 4
//                  20 Flags 4   24 pages and copies 5 x 2   34 hooks and templates 8 x 4
//   DEVMODE  122   0 dmDeviceName 32   32 versions 2 x 2   36 dmSize 2   38 dmDriverExtra 2
//                  40 dmFields 4   44 dmOrientation 2   46 dmPaperSize 2   48 dmPaperLength 2
//                  50 dmPaperWidth 2   52 dmScale 2   54 dmCopies 2   56 dmDefaultSource 2
//                  58 dmPrintQuality 2   60 dmColor 2   62 dmDuplex 2   64 dmYResolution 2
//                  66 dmTTOption 2   68 dmCollate 2   70 dmFormName 32   102 padding 2
//                  104 dmBitsPerPel 2   106 screen 4 x 4
//   DEVNAMES 108   0 wDriverOffset 2   2 wDeviceOffset 2   4 wOutputOffset 2   6 wDefault 2
//                  8 text 100
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/printer.h"

namespace cumeron {

using Bytes = std::span<std::uint8_t>;
using ConstBytes = std::span<const std::uint8_t>;

namespace print_dlg {
inline constexpr std::size_t StructSize = 0, Owner = 4, DevMode = 8, DevNames = 12, Flags = 20;
}
namespace dev_mode {
inline constexpr std::size_t DeviceName = 0, DeviceNameLength = 32, Size = 36, Fields = 40,
                             Orientation = 44, PaperSize = 46, Copies = 54, Color = 60, Duplex = 62;
}
namespace dev_names {
inline constexpr std::size_t DriverOffset = 0, DeviceOffset = 2, OutputOffset = 4, Default = 6,
                             Text = 8, TextLength = 100;
}

// Where each property of the printer stands in DEVMODE.
struct DevModeField {
    PrinterProperty property;
    std::size_t offset;
};
// In the order in which they are given to the printer.
inline constexpr DevModeField DevModeFields[] = {
    {PrinterProperty::Copies, dev_mode::Copies},
    {PrinterProperty::Duplex, dev_mode::Duplex},
    {PrinterProperty::Orientation, dev_mode::Orientation},
    {PrinterProperty::PaperSize, dev_mode::PaperSize},
    {PrinterProperty::ColorMode, dev_mode::Color},
};

std::int16_t WordAt(ConstBytes record, std::size_t offset);
void PutWord(Bytes record, std::size_t offset, std::int16_t value);
void PutLong(Bytes record, std::size_t offset, std::int32_t value);
// A text of fixed length: what is longer is cut, what is shorter filled up with blanks.
void PutFixedText(Bytes record, std::size_t offset, std::size_t length, std::string_view text);
// dmDeviceName to its first NUL, without the blanks that fill it up.
std::string DeviceNameOf(ConstBytes devMode);
// The same as a dialog answers: the name and NULs behind it. A name of 32 characters or more is cut
// to 31.
void PutDeviceName(Bytes devMode, std::string_view name);
// The name as such an answer can hold it.
std::string AsInDevMode(std::string_view name);

}  // namespace cumeron
