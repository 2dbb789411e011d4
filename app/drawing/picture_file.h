// Pictures as files: the format follows the file name's ending, and a PNG is rendered from our
// SVG in this process.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace app {

enum class PictureFormat { svg, png };

// ".svg" or ".png", in any letter case; nothing for any other name.
std::optional<PictureFormat> pictureFormat(std::string_view path);

// Why a picture cannot be written under this name ("--preview" and the path named), or empty
// when the ending is one we write.
std::string pictureNameProblem(std::string_view option, std::string_view path);

// The bytes of the file: the SVG text itself, or the SVG rendered to PNG at its own size.
// Throws AppError when the SVG cannot be rendered.
std::string pictureBytes(const std::string& svg, PictureFormat format);

// The SVG rendered to PNG at its own size, in pixels.
std::string renderPng(const std::string& svg);

}  // namespace app
