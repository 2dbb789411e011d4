// The fuzz targets as plain functions, so that libFuzzer drives them in the fuzz build and the
// normal test suite replays their corpus and every input that once broke something. Each returns
// an empty text when the input was handled correctly, else what went wrong.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

// Arbitrary bytes as the text of one of the dialog's edit fields, set through the item suite or
// typed through the window system, then read back as the dialog reads its settings.
std::string editFieldText(const std::uint8_t* data, std::size_t size);

// Arbitrary bytes as a scene file: either one clear scene error, or a scene that writes and
// reads back to the same text and holds only finite values.
std::string sceneFile(const std::uint8_t* data, std::size_t size);

// Arbitrary bytes as a --set NAME=VALUE of orbisett-host: either one clear message, or a
// setting that the dialog's field then reads as the number the command line gave.
std::string setAssignment(const std::uint8_t* data, std::size_t size);

}  // namespace fuzz
