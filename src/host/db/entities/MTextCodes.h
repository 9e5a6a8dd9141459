#pragma once

#include <string>
#include <string_view>

namespace entities {

/// The text of an MText's contents without its codes, lines parted by line feeds. Signs written with %% stay: the
/// drawing understands them. A code without its end takes the rest of the text.
std::wstring plainMText(std::wstring_view contents);

}  // namespace entities
