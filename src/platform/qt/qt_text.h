#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace bracken {

// Text between the model, bytes with no encoding, and the toolkit, UTF-16. Bytes that are valid
// UTF-8 are shown as such, any others as Latin-1.

bool isUtf8(std::string_view bytes);
QString toQString(std::string_view bytes);
// The start of the text, at most `limit` UTF-16 units of it, without reading the rest.
QString toQStringStart(std::string_view bytes, int limit);
// What the model gets for a text that the user typed: UTF-8.
std::string bytesOf(const QString& text);

// As shown, "&" made literal where the toolkit reads it as a mnemonic.
QString captionText(std::string_view bytes);
// Control characters but line ends and tabs replaced by visible signs.
QString withoutControls(const QString& text);
// For one line: line ends and tabs become blanks as well.
QString withoutLineControls(const QString& text);

}  // namespace bracken
