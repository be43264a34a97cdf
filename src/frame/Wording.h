#pragma once

namespace kvi {

// The interface says part group throughout, whatever the tables and fields are called; the words
// stand here once.
inline constexpr const char* kPartGroup = "Part Group";
inline constexpr const char* kPartGroups = "Part Groups";
inline constexpr const char* kPartGroupLower = "part group";
inline constexpr const char* kPartGroupsLower = "part groups";
inline constexpr const char* kPartGroupMenu = "Menu Costing/Part Group";

}  // namespace kvi
