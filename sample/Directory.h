#pragma once

#include <span>
#include <string_view>

#include "sample/Catalogue.h"

namespace kvi {

// A vendor of the sample. Every name is invented.
struct Vendor {
  std::string_view Name;
  Trade Deals;
  std::string_view Code;
  std::string_view Street, City, State, Zip, AreaCode;
  std::string_view Web;
};

// An employee with the rights of a role: letters I inventory, R part groups, P orders, S update of
// levels, H usage, T reports, U utilities; capital for full access, small for reading only.
struct Employee {
  std::string_view Code, Name, Rights;
  int Level;
};

std::span<const Vendor> Vendors();
std::span<const Employee> Employees();
std::span<const std::string_view> ContactNames();
std::span<const std::string_view> ProfitCenterNames();

}  // namespace kvi
