#pragma once

#include <string>

#include "frame/KviScreen.h"
#include "grids/WorkbookItem.h"
#include "platform/Spread.h"

namespace kvi {

// The register of the vendors' invoices, shared by the whole installation: its rows have no profit
// center and no link to parts or orders. A row has no identity: every save rewrites the table.
class KVI_Invoice : public KviScreen {
 public:
  explicit KVI_Invoice(Application& app);

  void Activate() override;
  void Exit() override;
  Layout Arrange() override;

  ComboBox SortCombo{*this, "SortCombo", ComboBox::Style::ListOnly};
  Spread Spread1{*this, "Spread1", 6};
  ActionLabel new_lab{*this, "new_lab", "&New"};
  ActionLabel save{*this, "save", "&Save"};
  ActionLabel remove{*this, "remove", "&Remove"};
  ActionLabel print_lab{*this, "print_lab", "&Print"};
  ActionLabel exit_lab{*this, "exit_lab", "E&xit"};
  StatusBar StatusBar1{*this, "StatusBar1", 2};
  Menu m_file{*this, "m_file", "&File"};
  MenuItem M_export{m_file, "M_export", "Export to spreadsheet"};
  WorkbookItem m_workbook{m_file, app_, *this, Spread1};
  MenuItem m_exit{m_file, "m_exit", "E&xit this screen"};
  MenuItem m_line{m_file, "m_line", "-"};
  // Behind a line at the end, where nobody meets it on the way to another entry.
  MenuItem m_delete{m_file, "m_delete", "Delete ALL Invoices"};

 protected:
  void Prepare() override;

 private:
  std::string Query() const;
  void load_data();
  void ShowPosition();
  bool MayWrite();
  // False when the save was wanted and failed, so that what was typed must not be lost; a refusal
  // for want of the write right is none.
  bool save_changes();
  bool SaveIfWanted(const std::string& question);
  void ShowDate(int row, int column);
  void CompleteRow(int row);
  void CompleteDate(int row, int column);
  bool WriteTable();
  bool WriteRow(jet::Recordset& invoices, int row);
  void AddInvoice();
  void RemoveActive();
  void RemoveAll();
  void PrintRegister();
  void Leave(const std::string& question);

  bool changed_ = false;
  bool loaded_ = false;  // the grid holds the whole table
};

}  // namespace kvi
