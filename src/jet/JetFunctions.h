#pragma once

struct sqlite3;

namespace kvi::jet {

// Registers on a connection what the dialect needs of the engine: the collation JET1 (text without
// regard to case, accents distinct but sorted beside their letter), Jet's LIKE wildcards
// (* ? # [a-z]), and the functions UCase, LCase, Val, Format, Len, Left, Right, Mid, Trim's sides
// where SQLite has none, IIf, Nz and IsNull. SQLite's own trim() stays, so that an index on it
// serves.
void RegisterJetFunctions(sqlite3* connection);

// The order of JET1: below 0, 0 or above 0.
int CompareJet1(const char* left, int leftBytes, const char* right, int rightBytes);

}  // namespace kvi::jet
