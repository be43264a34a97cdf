#pragma once

#include <string>

namespace kvi::jet {

// The functions of schema kvi that rest on our tables of characters, as SQL that makes them:
//   key(text)     compared under "C", the order of texts: below, equal or above as CompareTexts has
//                 it (base letters first, behind a blank the accents)
//   fold(text)    one character for each, equal where TextKey is, and in its order
//   ucase, lcase  as UCase and LCase
// Texts of ASCII alone take a short way that the server writes into the statement.
std::string CharacterFunctions();

}  // namespace kvi::jet
