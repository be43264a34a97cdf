#include "sample/Catalogue.h"

#include <algorithm>

#include "base/Text.h"

namespace kvi {
namespace {

constexpr Category kCategories[] = {
    {"Bearings", Trade::Drive, "A", {6, 3, 1}},
    {"Belts", Trade::Drive, "A", {6, 3, 1}},
    {"Chain and sprockets", Trade::Drive, "B", {8, 2, 0}},
    {"Couplings", Trade::Drive, "B", {6, 4, 0}},
    {"Seals and gaskets", Trade::Drive, "B", {5, 4, 1}},
    {"Fasteners", Trade::Fastener, "C", {5, 3, 2}},
    {"Electrical", Trade::Electric, "D", {5, 4, 1}},
    {"Lighting", Trade::Electric, "D", {6, 2, 2}},
    {"Motors and drives", Trade::Motor, "Cage", {6, 4, 0}},
    {"Filters", Trade::Filter, "E", {5, 3, 2}},
    {"HVAC", Trade::Climate, "E", {7, 3, 0}},
    {"Plumbing", Trade::Pipe, "F", {5, 5, 0}},
    {"Valves", Trade::Pipe, "F", {4, 6, 0}},
    {"Hydraulics", Trade::FluidPower, "G", {6, 2, 2}},
    {"Pneumatics", Trade::FluidPower, "G", {8, 2, 0}},
    {"Instruments", Trade::Gauge, "G", {4, 6, 0}},
    {"Lubricants", Trade::Oil, "Oil room", {5, 2, 3}},
    {"Paint and chemicals", Trade::Coating, "Flammables", {6, 2, 2}},
    {"Safety", Trade::Safety, "H", {6, 3, 1}},
    {"Janitorial", Trade::Safety, "H", {7, 2, 1}},
    {"Tools", Trade::Tool, "Tool crib", {5, 3, 2}},
    {"Welding", Trade::Tool, "Tool crib", {5, 4, 1}},
    {"Fleet parts", Trade::General, "Garage", {0, 0, 1}}};

std::vector<std::string_view> Split(std::string_view list, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t start = 0;;) {
    const std::size_t end = list.find(separator, start);
    parts.push_back(list.substr(start, end - start));
    if (end == std::string_view::npos) return parts;
    start = end + 1;
  }
}

struct Filling {
  std::string_view Code, Measure, Variant;
};

std::string Fill(std::string_view pattern, const Filling& filling) {
  std::string text = Replace(pattern, "%c", filling.Code);
  text = Replace(text, "%m", filling.Measure);
  return Replace(text, "%v", filling.Variant);
}

// Sizes grow dearer faster than they grow; each further variant costs some 18 % more.
int PriceOf(const Family& family, int size, int sizes, int variant) {
  const int last = std::max(1, sizes - 1);
  const int spread = family.Highest - family.Lowest;
  const int plain = family.Lowest + static_cast<int>(long{spread} * size * size / last / last);
  return static_cast<int>(long{plain} * (100 + 18 * variant) / 100);
}

void AddFamily(const Family& family, std::vector<CatalogueItem>& items) {
  const auto sizes = Split(family.Sizes, '|');
  const auto variants = Split(family.Variants, '|');
  for (std::size_t v = 0; v < variants.size(); ++v) {
    for (std::size_t s = 0; s < sizes.size(); ++s) {
      const std::size_t colon = sizes[s].find(':');
      Filling filling{sizes[s].substr(0, colon), {}, variants[v]};
      if (colon != std::string_view::npos) filling.Measure = sizes[s].substr(colon + 1);
      items.push_back({&family, std::string(filling.Code), Fill(family.Name, filling),
                       Fill(family.Description, filling),
                       PriceOf(family, static_cast<int>(s), static_cast<int>(sizes.size()),
                               static_cast<int>(v))});
    }
  }
}

}  // namespace

std::span<const Category> Categories() {
  return kCategories;
}

const Category& CategoryNamed(std::string_view name) {
  return *std::ranges::find(kCategories, name, &Category::Name);
}

std::vector<CatalogueItem> WholeCatalogue() {
  std::vector<CatalogueItem> items;
  for (const Family& family : MechanicalFamilies()) AddFamily(family, items);
  for (const Family& family : FacilityFamilies()) AddFamily(family, items);
  return items;
}

}  // namespace kvi
