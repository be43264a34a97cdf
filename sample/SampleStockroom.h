#pragma once

#include "jet/Database.h"

namespace kvi {

struct SampleOptions {
  int Parts = 1500;
  int PurchasesPerPart = 6;  // on average
  int Invoices = 45;
};

// Fills a new database (all tables there, no rows but the column widths) with a maintenance
// stockroom of three profit centers: parts, vendors, 18 months of purchases up to 10/31/2026,
// locked periods, part groups, open orders, invoices and employees. The same options give the
// same rows on every machine.
void FillSampleStockroom(jet::Database& database, const SampleOptions& options);

}  // namespace kvi
