#include <algorithm>
#include <numeric>
#include <tuple>
#include <unordered_set>

#include "base/Text.h"
#include "sample/Directory.h"
#include "sample/Stockroom.h"

namespace kvi {
namespace {

using stockroom::Part;
using stockroom::Source;

constexpr std::size_t kLongestInvId = 15;

// Whose goods a part is when the catalogue is stocked a second time and more.
constexpr std::string_view kMakers[] = {"Norvane",  "Kelbrook",  "Tessmer",  "Ardlin",
                                        "Voskamp",  "Brightell", "Corvane",  "Haldeck",
                                        "Mirrotec", "Pallwick",  "Stanmoor", "Quenby"};

// A note of the counter, for one category or, with none named, for any.
struct Note {
  std::string_view Category, Text;
};
constexpr Note kNotes[] = {
    {"", "Lead time 6 to 8 weeks, order ahead of the shutdown."},
    {"", "Minimum order 2."},
    {"", "Vendor ships freight collect unless told otherwise."},
    {"", "Also used by the night crew, count both bins."},
    {"", "Replaces the old number 30-4471. Use up old stock first."},
    {"Bearings", "Check the shaft fit before ordering, two versions are in use."},
    {"Belts", "Keep out of the sun, hang on the pegs. Change as a set."},
    {"Seals and gaskets", "Shelf life 24 months, see the date on the bag."},
    {"Fasteners", "Torque to 65 ft-lb.\r\nRe-check after 24 hours."},
    {"Electrical", "Ask the electricians before substituting another make."},
    {"Motors and drives", "Return the old one for core credit."},
    {"Filters", "Note the date on the frame when fitted."},
    {"Plumbing", "Cut to length at the counter, 3/4\" stubs go in the scrap bin."},
    {"Valves", "Rebuild kit is stocked, don't throw the body away."},
    {"Hydraulics", "Crimped at the bench, bring the old hose."},
    {"Lubricants", "Don't mix with other grades. Keep the bung closed."},
    {"Paint and chemicals", "Safety sheet is on the cabinet door."},
    {"Safety", "Sign out at the counter."},
    {"Welding", "Keep dry. Store upright."}};

std::string NoteFor(const Category& category, Dice& dice) {
  std::vector<std::string_view> fitting;
  for (const Note& note : kNotes)
    if (note.Category.empty() || note.Category == category.Name) fitting.push_back(note.Text);
  return std::string(dice.Pick(fitting));
}

std::string LongNote() {
  std::string note =
      "History of this item, kept by the stockroom since the storage move. "
      "\"Approved equal\" means approved by engineering, not by the counter.\r\n\r\n";
  for (int round = 1; round <= 6; ++round) {
    note += "Revision " + std::to_string(round) + ": ";
    for (const Note& sentence : kNotes) note.append(sentence.Text).append(" ");
    note += "\r\n";
  }
  return note;
}

// Hands out part numbers, each once: most are numeric and grow with gaps, some are in letters.
class Numbering {
 public:
  std::string Next(const CatalogueItem& item, Dice& dice) {
    next_ += dice.Between(1, 7);
    std::string lettered;
    if (!item.Of->Prefix.empty() && dice.Percent(60))
      lettered = std::string(item.Of->Prefix) + "-" + Replace(item.Code, "/", "-");
    const bool fits = !lettered.empty() && lettered.size() <= kLongestInvId;
    return fits && lettered_.insert(lettered).second ? lettered : std::to_string(next_);
  }

 private:
  int next_ = 100000;
  std::unordered_set<std::string> lettered_;
};

std::string TwoDigits(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string LocationIn(const Category& category, Dice& dice) {
  const std::string area(category.Area);
  if (area.size() > 1) return area + " rack " + std::to_string(dice.Between(1, 6));
  const int bay = dice.Between(1, 8);
  return area + "-" + TwoDigits(bay) + "-" + std::to_string(dice.Between(1, 4));
}

int ProfitCenterFor(const Category& category, Dice& dice) {
  int roll = dice.Below(std::accumulate(std::begin(category.Share), std::end(category.Share), 0));
  int center = 0;
  while (roll >= category.Share[center]) roll -= category.Share[center++];
  return center;
}

// Eleven digits and the check digit of a retail bar code.
std::string BarCode(Dice& dice) {
  std::string digits;
  int sum = 0;
  for (int i = 0; i < 11; ++i) {
    const int digit = dice.Below(10);
    digits += static_cast<char>('0' + digit);
    sum += digit * (i % 2 == 0 ? 3 : 1);
  }
  return digits + static_cast<char>('0' + (10 - sum % 10) % 10);
}

// The dearer a part, the fewer of it are kept.
void SetLevels(Part& part, Dice& dice) {
  struct Tier {
    int BelowCents, Low, High;
  };
  constexpr Tier kTiers[] = {
      {1000, 6, 24}, {5000, 3, 12}, {20000, 2, 6}, {80000, 1, 3}, {1 << 30, 1, 2}};
  const auto& tier =
      *std::ranges::find_if(kTiers, [&](const Tier& t) { return part.Cents < t.BelowCents; });
  const bool keptInStock = dice.Percent(92);
  part.Par = keptInStock ? dice.Between(tier.Low, tier.High) : 0;
  part.ReOrder = part.Par >= 3 ? part.Par / 3 : part.Par / 2;
}

const Vendor& VendorFor(const Category& category, bool generalToo, Dice& dice) {
  std::vector<const Vendor*> able;
  for (const Vendor& vendor : Vendors())
    if (vendor.Deals == category.SoldBy || (generalToo && vendor.Deals == Trade::General))
      able.push_back(&vendor);
  return *dice.Pick(able);
}

Source SourceFrom(const Vendor& vendor, int cents, Dice& dice) {
  const int number = dice.Between(1000, 98999);
  const bool withCode = dice.Percent(50);
  return {vendor.Name, (withCode ? std::string(vendor.Code) + "-" : "") + std::to_string(number),
          cents};
}

// The source in use sells at the part's own cost, the others at about that.
void SetSources(Part& part, Dice& dice) {
  const Vendor& first = VendorFor(*part.Category, false, dice);
  part.Sources[0] = SourceFrom(first, part.Cents, dice);
  const Vendor& second = VendorFor(*part.Category, true, dice);
  if (dice.Percent(35) || second.Name == first.Name) return;
  part.Sources[1] = SourceFrom(second, part.Cents * dice.Between(96, 115) / 100, dice);
  const Vendor& third = VendorFor(*part.Category, true, dice);
  if (dice.Percent(40) && third.Name != first.Name && third.Name != second.Name)
    part.Sources[2] = SourceFrom(third, part.Cents * dice.Between(98, 122) / 100, dice);
  if (dice.Percent(18)) {
    part.SourceInUse = 2;
    std::swap(part.Sources[0].Cents, part.Sources[1].Cents);
  }
}

Part MakePart(const CatalogueItem& item, std::string number, Dice& dice) {
  const Category& category = CategoryNamed(item.Of->Category);
  Part part;
  part.InvId = std::move(number);
  part.Name = item.Name;
  part.Description = item.Description;
  part.Category = &category;
  part.Pack = &item.Of->Pack;
  part.ProfitCenter = ProfitCenterFor(category, dice);
  part.Cents = std::max(1, item.Cents * dice.Between(92, 108) / 100);
  part.Location = LocationIn(category, dice);
  part.Active = !dice.Percent(6);
  part.Corporate = dice.Percent(10);
  if (dice.Percent(70)) part.BarCode = BarCode(dice);
  if (dice.Percent(12)) part.Notes = NoteFor(category, dice);
  SetLevels(part, dice);
  SetSources(part, dice);
  return part;
}

// The lines of the count sheet follow the walk through the stockroom, in steps that leave room.
void NumberCountSheetLines(std::vector<Part>& parts) {
  std::vector<Part*> walk;
  walk.reserve(parts.size());
  for (Part& part : parts) walk.push_back(&part);
  std::ranges::stable_sort(walk, [](const Part* left, const Part* right) {
    return std::tie(left->ProfitCenter, left->Location, left->Name) <
           std::tie(right->ProfitCenter, right->Location, right->Name);
  });
  int line = 0, center = -1;
  for (Part* part : walk) {
    if (part->ProfitCenter != center) line = 0;
    center = part->ProfitCenter;
    line += 10;
    const std::string digits = std::to_string(line);
    part->Account = std::string(digits.size() < 5 ? 5 - digits.size() : 0, '0') + digits;
  }
}

}  // namespace

void StockParts(Stockroom& room, int count, Dice& dice) {
  std::vector<CatalogueItem> catalogue = WholeCatalogue();
  const int items = static_cast<int>(catalogue.size());
  for (int i = items - 1; i > 0; --i)
    std::swap(catalogue[static_cast<std::size_t>(i)],
              catalogue[static_cast<std::size_t>(dice.Below(i + 1))]);

  Numbering numbering;
  room.Parts.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const CatalogueItem& item = catalogue[static_cast<std::size_t>(i % items)];
    room.Parts.push_back(MakePart(item, numbering.Next(item, dice), dice));
    const int again = i / items - 1;
    if (again < 0) continue;
    const int makers = static_cast<int>(std::size(kMakers));
    room.Parts.back().Name.append(", ").append(kMakers[again % makers]);
    if (again >= makers) room.Parts.back().Name += " series " + std::to_string(again / makers + 1);
  }
  if (!room.Parts.empty()) room.Parts[room.Parts.size() / 2].Notes = LongNote();
  NumberCountSheetLines(room.Parts);
}

}  // namespace kvi
