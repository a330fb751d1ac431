#pragma once
// Small looks into a text around the caret, for rules that run on every key: the text is read in pieces and no farther
// than to the delimiter that decides, so that a look costs the same in a short and in a long text.
//
// Offsets are bytes and stretches [start, end); a stretch may reach behind the end of the text and ends there.

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/TextControl.h"
#include "templates/Model.h"

namespace aids {

/// Hands over the characters of a stretch one by one, as UTF-8, with their offsets, until `visit` returns false.
void VisitCharacters(const platform::TextControl& control, std::size_t start, std::size_t end,
                     const std::function<bool(std::size_t offset, std::string_view character)>& visit);

/// The offset of the first delimiter in a stretch, or where the stretch ends when there is none.
std::size_t FirstDelimeter(const platform::TextControl& control, const templates::TemplateFields& fields,
                           std::size_t start, std::size_t end);

/// Up to `count` characters from `start` on.
std::string CharactersAt(const platform::TextControl& control, std::size_t start, std::size_t count);

}  // namespace aids
