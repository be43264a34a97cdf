#pragma once

#include <string>

namespace kvi {

// The interface says part group throughout, whatever the tables and fields are called; the words
// stand here once.
inline const std::string kPartGroup = "Part Group";
inline const std::string kPartGroups = "Part Groups";
inline const std::string kPartGroupLower = "part group";
inline const std::string kPartGroupsLower = "part groups";
inline const std::string kPartGroupMenu = "Menu Costing/Part Group";

// The entries by which a list is not filtered.
inline const std::string kAllCategories = "(All Categories)";
inline const std::string kAllVendors = "(All Vendors)";

}  // namespace kvi
