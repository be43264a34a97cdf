#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvi {

// What a vendor deals in. General houses sell a little of everything.
enum class Trade {
  Drive,
  Fastener,
  Electric,
  Pipe,
  Oil,
  Safety,
  FluidPower,
  Filter,
  Climate,
  Tool,
  Motor,
  Gauge,
  Coating,
  General
};

// A kind of part: where it is kept, and how its parts spread over the three profit centers.
struct Category {
  std::string_view Name;
  Trade SoldBy;
  std::string_view Area;  // the aisle, or a room with racks
  int Share[3];
};

// How a part is bought, counted and used: 1 Purchased = PerPurchased Counted, and
// 1 Counted = PerCounted Used.
struct Packing {
  std::string_view Purchased, Counted, Used;
  int PerPurchased;
  int PerCounted;
  int Yield;  // percent left after cutting; 0 when nothing is cut
};

// A family of parts: every size in every variant. In its texts "%c" is the size's code, "%m" its
// measure and "%v" the variant. Sizes read "code:measure|code|...", the cheapest first; prices are
// cents for one purchased unit of the first variant, of the smallest and of the largest size.
struct Family {
  std::string_view Category;
  std::string_view Prefix;  // of a part number in letters; empty for none
  std::string_view Name;
  std::string_view Description;
  std::string_view Sizes;
  std::string_view Variants;
  int Lowest, Highest;
  const Packing& Pack;
};

std::span<const Category> Categories();
const Category& CategoryNamed(std::string_view name);
std::span<const Family> MechanicalFamilies();
std::span<const Family> FacilityFamilies();

// One part of the catalogue before anybody stocks it.
struct CatalogueItem {
  const Family* Of;
  std::string Code, Name, Description;
  int Cents;
};

// All parts of all families.
std::vector<CatalogueItem> WholeCatalogue();

namespace packing {
inline constexpr Packing kEach{"each", "each", "each", 1, 1, 0};
inline constexpr Packing kPair{"pair", "pair", "pair", 1, 1, 0};
inline constexpr Packing kSet{"set", "set", "set", 1, 1, 0};
inline constexpr Packing kDozenPair{"dozen", "pair", "pair", 12, 1, 0};
inline constexpr Packing kCaseOf4{"case", "gallon", "ounce", 4, 128, 0};
inline constexpr Packing kCaseOf6{"case", "each", "each", 6, 1, 0};
inline constexpr Packing kCaseOf12{"case", "each", "each", 12, 1, 0};
inline constexpr Packing kCaseOf24{"case", "each", "each", 24, 1, 0};
inline constexpr Packing kCaseOfTubes{"case", "tube", "ounce", 10, 14, 0};
inline constexpr Packing kCaseOfQuarts{"case", "quart", "ounce", 12, 32, 0};
inline constexpr Packing kCaseOfRolls{"case", "roll", "roll", 12, 1, 0};
inline constexpr Packing kBoxOf10{"box", "each", "each", 10, 1, 0};
inline constexpr Packing kBoxOf25{"box", "each", "each", 25, 1, 0};
inline constexpr Packing kBoxOf50{"box", "each", "each", 50, 1, 0};
inline constexpr Packing kBoxOf100{"box", "each", "each", 100, 1, 0};
inline constexpr Packing kBoxOfPairs{"box", "pair", "pair", 200, 1, 0};
inline constexpr Packing kBoxOfChain{"box", "foot", "inch", 10, 12, 95};
inline constexpr Packing kBagOf25{"bag", "each", "each", 25, 1, 0};
inline constexpr Packing kBagOf100{"bag", "each", "each", 100, 1, 0};
inline constexpr Packing kPackOf4{"pack", "each", "each", 4, 1, 0};
inline constexpr Packing kPackOf24{"pack", "each", "each", 24, 1, 0};
inline constexpr Packing kDrum{"drum", "gallon", "quart", 55, 4, 0};
inline constexpr Packing kPail{"pail", "gallon", "quart", 5, 4, 0};
inline constexpr Packing kGallon{"gallon", "quart", "ounce", 4, 32, 0};
inline constexpr Packing kRoll25{"roll", "foot", "inch", 25, 12, 90};
inline constexpr Packing kRoll100{"roll", "foot", "inch", 100, 12, 95};
inline constexpr Packing kRoll500{"roll", "foot", "foot", 500, 1, 98};
inline constexpr Packing kLength10{"length", "foot", "inch", 10, 12, 90};
inline constexpr Packing kLength20{"length", "foot", "inch", 20, 12, 90};
inline constexpr Packing kCylinder{"cylinder", "pound", "ounce", 25, 16, 0};
inline constexpr Packing kCanOf50{"can", "pound", "pound", 50, 1, 85};
}  // namespace packing

}  // namespace kvi
