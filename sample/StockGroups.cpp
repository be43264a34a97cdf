#include <algorithm>
#include <span>

#include "base/Text.h"
#include "sample/Stockroom.h"

namespace kvi {
namespace {

using stockroom::GroupLine;
using stockroom::Part;
using stockroom::PartGroup;

// A kind of part group, built for three machines each. "Of" lists the kinds of its parts, one or
// two of each; an outer group also holds the machine's first groups.
struct GroupKind {
  std::string_view Name;  // "%u" is the machine's number
  std::string_view Category;
  int ProfitCenter;
  bool Outer;
  std::string_view Notes;
  std::span<const std::string_view> Of;
};

constexpr std::string_view kPumpParts[] = {"Bearings", "Seals and gaskets", "Seals and gaskets",
                                           "Couplings", "Fasteners"};
constexpr std::string_view kDriveParts[] = {
    "Bearings", "Chain and sprockets", "Chain and sprockets", "Motors and drives", "Fasteners"};
constexpr std::string_view kBeltParts[] = {"Belts", "Bearings", "Lubricants"};
constexpr std::string_view kAirParts[] = {"Filters", "Filters", "Belts", "Safety"};
constexpr std::string_view kPressParts[] = {"Hydraulics", "Hydraulics", "Hydraulics", "Lubricants"};
constexpr std::string_view kPneumaticParts[] = {"Pneumatics", "Pneumatics", "Pneumatics",
                                                "Fasteners"};
constexpr std::string_view kMixerParts[] = {"Seals and gaskets", "Seals and gaskets", "Fasteners",
                                            "Paint and chemicals"};
constexpr std::string_view kPanelParts[] = {"Electrical", "Electrical", "Electrical", "Electrical"};
constexpr std::string_view kRestroomParts[] = {"Plumbing", "Plumbing", "Plumbing", "Janitorial"};
constexpr std::string_view kLightParts[] = {"Lighting", "Lighting", "Electrical", "Safety"};
constexpr std::string_view kShutdownParts[] = {"Safety", "Janitorial", "Lubricants", "Tools"};
constexpr std::string_view kBoilerParts[] = {"Valves", "Valves", "Seals and gaskets", "Instruments",
                                             "Plumbing"};
constexpr std::string_view kTowerParts[] = {"HVAC", "Belts", "Filters", "Plumbing"};
constexpr std::string_view kCompressorParts[] = {"Filters", "Filters", "Lubricants", "Belts"};
constexpr std::string_view kSteamParts[] = {"Valves", "Valves", "Instruments", "Plumbing"};
constexpr std::string_view kOutageParts[] = {"Safety", "Welding", "Tools"};
constexpr std::string_view kFleetParts[] = {"Fleet parts", "Fleet parts", "Fleet parts",
                                            "Lubricants"};
constexpr std::string_view kBrakeParts[] = {"Fleet parts", "Fleet parts", "Fasteners", "Safety"};
constexpr std::string_view kWinterParts[] = {"Fleet parts", "Fleet parts", "Electrical"};

constexpr GroupKind kGroupKinds[] = {
    {"Pump P-10%u overhaul", "Overhaul kits", 0, false, "Do the coupling alignment last.",
     kPumpParts},
    {"Conveyor C-%u drive rebuild", "Overhaul kits", 0, false, "", kDriveParts},
    {"Conveyor C-%u 500 hour service", "Preventive maintenance", 0, false, "", kBeltParts},
    {"Air handler AHU-%u filter change", "Building systems", 0, false,
     "Twice a year, April and October.", kAirParts},
    {"Hydraulic press H-%u hose set", "Overhaul kits", 0, false, "", kPressParts},
    {"Packaging line %u pneumatic kit", "Preventive maintenance", 0, false, "", kPneumaticParts},
    {"Mixer M-%u seal kit", "Overhaul kits", 0, false, "", kMixerParts},
    {"Panel MCC-%u spares", "Critical spares", 0, false,
     "Kept together in the cage, don't issue singly.", kPanelParts},
    {"Restroom %u repair kit", "Building systems", 0, false, "", kRestroomParts},
    {"Area %u relamping", "Building systems", 0, false, "", kLightParts},
    {"Line %u annual shutdown", "Shutdowns", 0, true, "Draw two weeks ahead.", kShutdownParts},
    {"Boiler B-%u annual inspection", "Preventive maintenance", 1, false,
     "Gaskets are never used twice.", kBoilerParts},
    {"Cooling tower CT-%u spring start", "Seasonal", 1, false, "", kTowerParts},
    {"Feedwater pump FP-%u overhaul", "Overhaul kits", 1, false, "", kPumpParts},
    {"Compressor AC-%u 4000 hour service", "Preventive maintenance", 1, false, "",
     kCompressorParts},
    {"Steam station S-%u trap kit", "Preventive maintenance", 1, false, "", kSteamParts},
    {"Powerhouse outage %u", "Shutdowns", 1, true, "", kOutageParts},
    {"Forklift %u 250 hour service", "Fleet service", 2, false, "", kFleetParts},
    {"Truck %u brake job", "Fleet service", 2, false, "Both axles.", kBrakeParts},
    {"Van %u winter kit", "Seasonal", 2, false, "", kWinterParts}};

constexpr int kMachines = 3;
constexpr std::size_t kInnerGroups = 3;
constexpr int kFirstGroupNumber = 1001;

// The part's cost for one used unit, as the roll-up of the part groups works it out.
double CostPerUsed(const Part& part) {
  return part.Cents / 100.0 / part.Pack->PerPurchased / part.Pack->PerCounted;
}

int UsedQuantity(const Packing& pack, Dice& dice) {
  if (pack.PerCounted > 1) return dice.Between(1, 6) * pack.PerCounted;
  return pack.PerPurchased > 1 ? dice.Between(2, 16) : dice.Between(1, 4);
}

void AddPart(PartGroup& group, const Part& part, Dice& dice) {
  for (const GroupLine& line : group.Lines)
    if (line.InvId == part.InvId) return;
  const int quantity = UsedQuantity(*part.Pack, dice);
  const double cost = CostPerUsed(part);
  group.Lines.push_back(
      {part.InvId, part.Name, std::string(part.Pack->Used), part.Description, quantity, cost});
  group.Cost += quantity * cost;
  group.CostToOuter += quantity * cost * 100 / (part.Pack->Yield > 0 ? part.Pack->Yield : 100);
}

void AddParts(PartGroup& group, const GroupKind& kind, const std::vector<Part>& parts, Dice& dice) {
  for (const auto& category : kind.Of) {
    std::vector<const Part*> fitting;
    for (const Part& part : parts)
      if (part.Active && part.ProfitCenter == kind.ProfitCenter && part.Category->Name == category)
        fitting.push_back(&part);
    const int wanted = dice.Between(1, 2);
    for (int i = 0; i < wanted && !fitting.empty(); ++i) AddPart(group, *dice.Pick(fitting), dice);
  }
}

// A group chosen from the list of groups carries a suffix behind its number, and the roll-up never
// finds such a line again: it costs nothing from then on. One stands here, as in any real shop.
void AddGroup(PartGroup& outer, const PartGroup& inner, bool withSuffix) {
  const double cost = withSuffix ? 0 : inner.CostToOuter;
  outer.Lines.push_back({inner.RecId + (withSuffix ? " (part group #)" : ""), inner.Name, "Units",
                         "RECIPE IN RECIPE", 1, cost});
  outer.Cost += cost;
  outer.CostToOuter += cost;
}

// An outer group takes its machine's first groups, the last machine's also the outer group before.
void AddGroups(PartGroup& outer, const std::vector<PartGroup>& groups) {
  std::size_t taken = 0;
  for (const PartGroup& inner : groups) {
    if (inner.ProfitCenter != outer.ProfitCenter) continue;
    const bool outerBefore =
        inner.Category == outer.Category && outer.Unit == kMachines && inner.Unit == outer.Unit - 1;
    const bool ofMachine = inner.Unit == outer.Unit && taken < kInnerGroups;
    if (!outerBefore && !ofMachine) continue;
    AddGroup(outer, inner, outer.ProfitCenter == 1 && outer.Unit == 1 && taken == 0);
    if (ofMachine) ++taken;
  }
}

}  // namespace

void BuildPartGroups(Stockroom& room, Dice& dice) {
  int number = kFirstGroupNumber;
  for (const GroupKind& kind : kGroupKinds) {
    for (int unit = 1; unit <= kMachines; ++unit) {
      PartGroup group;
      group.RecId = std::to_string(number++);
      group.Name = Replace(kind.Name, "%u", std::to_string(unit));
      group.Category = kind.Category;
      group.Notes = kind.Notes;
      group.ProfitCenter = kind.ProfitCenter;
      group.Unit = unit;
      AddParts(group, kind, room.Parts, dice);
      if (kind.Outer) AddGroups(group, room.Groups);
      room.Groups.push_back(std::move(group));
    }
  }
}

}  // namespace kvi
