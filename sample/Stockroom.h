#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sample/Catalogue.h"
#include "sample/Dice.h"
#include "sample/SampleStockroom.h"

namespace kvi {

// The sample stockroom before it is written. Money is in cents and levels are in hundredths of a
// purchased unit, so that every figure is the same on every machine; days are day numbers.
namespace stockroom {

struct Source {
  std::string_view Vendor;  // empty for none
  std::string Number;
  int Cents = 0;
};

struct Part {
  std::string InvId, Name, Description, Location, Account, Notes, BarCode;
  const kvi::Category* Category;
  const Packing* Pack;
  int ProfitCenter;
  int Cents;
  int OnHand = 0;
  int ReOrder, Par;  // in purchased units
  bool Active, Corporate;
  Source Sources[3];
  int SourceInUse = 1;  // 1 to 3
};

struct Purchase {
  const Part* Of;
  long Day;
  int Quantity, Cents;
  bool Received;  // an order that came in, else purchase entry
  int OrderedQuantity, OrderedCents;
  std::string TransNum;
};

struct LockedLevel {
  const Part* Of;
  long Day;
  int Level, Cents;
};

struct GroupLine {
  std::string InvId, Name, HowUsed, Description;
  int Quantity;
  double CostPer;
};

struct PartGroup {
  std::string RecId, Name;
  std::string_view Category, Notes;
  int ProfitCenter, Unit;
  double Cost = 0;         // the plain sum of the lines
  double CostToOuter = 0;  // with the parts' yields: what a group that nests this one pays
  std::vector<GroupLine> Lines;
};

struct Order {
  int Id;
  std::string Name;
  long Day;
  int ProfitCenter;
  struct Line {
    std::string InvId;
    int Quantity, Cents;  // 0 cents: ordered without a price
  };
  std::vector<Line> Lines;
};

struct Invoice {
  std::string_view Vendor;
  std::string Number;
  long Day, Due;
  int Cents, AdjustedCents;
};

}  // namespace stockroom

inline constexpr int kProfitCenterCount = 3;

// First and last day of the purchases, and the quarter ends at which periods were locked.
long FirstPurchaseDay();
long LastPurchaseDay();
const std::vector<long>& LockDays();
// The day itself, or the Friday or Monday beside a weekend's: nobody books goods on a Sunday.
long WorkDay(long day);

struct Stockroom {
  std::vector<stockroom::Part> Parts;
  std::vector<stockroom::Purchase> Purchases;  // by day
  std::vector<stockroom::LockedLevel> Levels;  // by day
  std::vector<stockroom::PartGroup> Groups;
  std::vector<stockroom::Order> Orders;
  std::vector<stockroom::Invoice> Invoices;
};

// Each step rolls the dice for its own share of the stockroom; the later ones build on the parts,
// whose vector is not resized any more.
void StockParts(Stockroom& room, int count, Dice& dice);
void LiveThroughPurchases(Stockroom& room, int purchasesPerPart, Dice& dice);
void BuildPartGroups(Stockroom& room, Dice& dice);
void PlaceOrders(Stockroom& room, Dice& dice);
void RegisterInvoices(Stockroom& room, int count, Dice& dice);

void WriteStockroom(jet::Database& database, const Stockroom& room);

}  // namespace kvi
