#include "support/AllScreens.h"

#include "frame/Application.h"
#include "grids/KVI_Find.h"
#include "items/KVI_ChooseVendors.h"
#include "items/KVI_InventoryDetail.h"
#include "items/KVI_InventoryDetail1Screen.h"
#include "items/KVI_InventorySummary.h"
#include "labels/KVI_Labels.h"
#include "ordering/KVI_OrderSystem.h"
#include "partgroups/KVI_PGDetail.h"
#include "partgroups/KVI_PGSummary.h"
#include "reports/KVI_ReportPages.h"
#include "reports/KVI_ReportsAnalysis.h"
#include "reports/preview.h"
#include "security/KVI_SecurityCheckpoint.h"
#include "start/Main.h"
#include "start/Welcome.h"
#include "stock/KVI_Invoice.h"
#include "stock/KVI_UpdateInventory.h"
#include "usage/KVI_UsageAnalysis.h"
#include "utilities/KVI_DeleteInventory.h"
#include "utilities/KVI_Backups.h"
#include "utilities/KVI_EmployeeSetup.h"
#include "utilities/KVI_EmployeeSetupDetail.h"
#include "utilities/KVI_GetILocation.h"
#include "utilities/KVI_ImportPBI.h"
#include "utilities/KVI_ManageDropLIsts.h"
#include "utilities/KVI_Utilities.h"
#include "vendors/KVI_VendorDetail.h"
#include "vendors/KVI_VendorSummary.h"

namespace kvi::test {

std::vector<Screen*> AllScreens(Application& app) {
  return {&app.Get<Main>(),
          &app.Get<KVI_Backups>(),
          &app.Get<KVI_ChooseVendors>(),
          &app.Get<KVI_DeleteInventory>(),
          &app.Get<KVI_EmployeeSetup>(),
          &app.Get<KVI_EmployeeSetupDetail>(),
          &app.Get<KVI_Find>(),
          &app.Get<KVI_GetILocation>(),
          &app.Get<KVI_ImportPBI>(),
          &app.Get<KVI_InventoryDetail>(),
          &app.Get<KVI_InventoryDetail1Screen>(),
          &app.Get<KVI_InventorySummary>(),
          &app.Get<KVI_Invoice>(),
          &app.Get<KVI_Labels>(),
          &app.Get<KVI_ManageDropLIsts>(),
          &app.Get<KVI_OrderSystem>(),
          &app.Get<KVI_PGDetail>(),
          &app.Get<KVI_PGSummary>(),
          &app.Get<KVI_ReportPages>(),
          &app.Get<KVI_ReportsAnalysis>(),
          &app.Get<KVI_SecurityCheckpoint>(),
          &app.Get<KVI_UpdateInventory>(),
          &app.Get<KVI_UsageAnalysis>(),
          &app.Get<KVI_UsageChart>(),
          &app.Get<KVI_Utilities>(),
          &app.Get<KVI_VendorDetail>(),
          &app.Get<KVI_VendorSummary>(),
          &app.Get<Welcome>(),
          &app.Get<preview>()};
}

}  // namespace kvi::test
