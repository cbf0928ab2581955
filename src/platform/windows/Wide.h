#pragma once

#include <string>
#include <string_view>

namespace tavel {

// The edge to the host's wide calls: ToUnicode and FromUnicode, with one thing more. A name of the
// host may have a surrogate without its other half, which is no character. FromWide writes it as
// the three bytes that UTF-8 would have for it, which are no UTF-8, and ToWide makes it of them
// again: so what a folder lists is found by the name that it was listed under, whatever that is.
// A window shows the three Windows-1252 characters of the bytes.
std::wstring ToWide(std::string_view text);
std::string FromWide(std::wstring_view text);

}  // namespace tavel
