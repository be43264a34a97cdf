#include "sample/Directory.h"

namespace kvi {
namespace {

constexpr Vendor kVendors[] = {
    {"Tarrowfield Bearing and Drive", Trade::Drive, "TBD", "4180 Carver Rd", "Dayton", "OH",
     "45414", "937", "tarrowfield"},
    {"Quillmere Power Transmission", Trade::Drive, "QPT", "22 Foundry St", "Rockford", "IL",
     "61104", "815", "quillmere"},
    {"Ostermoor Bearings", Trade::Drive, "OSM", "915 Lakeshore Ave", "Erie", "PA", "16505", "814",
     "ostermoor"},
    {"Lindvale Drive Parts", Trade::Drive, "LDP", "1370 Airport Way", "Boise", "ID", "83705", "208",
     "lindvale"},
    {"Brasscombe Fastener Supply", Trade::Fastener, "BFS", "608 Rivet Ln", "Waterbury", "CT",
     "06704", "203", "brasscombe"},
    {"Penhallow Bolt and Screw", Trade::Fastener, "PBS", "3101 Dock St", "Toledo", "OH", "43609",
     "419", "penhallow"},
    {"Wexcroft Threaded Products", Trade::Fastener, "WTP", "77 Mill Pond Rd", "Nashua", "NH",
     "03060", "603", "wexcroft"},
    {"Corrib Lane Electric Supply", Trade::Electric, "CLE", "1450 Substation Rd", "Peoria", "IL",
     "61602", "309", "corriblane"},
    {"Amberhurst Electrical", Trade::Electric, "AMB", "260 Copper Ct", "Tucson", "AZ", "85714",
     "520", "amberhurst"},
    {"Danforth Knoll Controls", Trade::Electric, "DKC", "8 Relay Park", "Greenville", "SC", "29607",
     "864", "danforthknoll"},
    {"Marlpit Pipe and Valve", Trade::Pipe, "MPV", "5200 Basin Dr", "Tulsa", "OK", "74107", "918",
     "marlpit"},
    {"Copperbeck Plumbing Supply", Trade::Pipe, "CPS", "19 Union St", "Albany", "NY", "12202",
     "518", "copperbeck"},
    {"Fennimoor Mechanical", Trade::Pipe, "FEN", "744 Boiler Row", "Duluth", "MN", "55802", "218",
     "fennimoor"},
    {"Oxbow Lantern Lubricants", Trade::Oil, "OLL", "3300 Tank Farm Rd", "Baton Rouge", "LA",
     "70805", "225", "oxbowlantern"},
    {"Gilderslee Oil", Trade::Oil, "GSO", "410 Refinery Blvd", "Toledo", "OH", "43605", "419",
     "gilderslee"},
    {"Prairie Wick Petroleum", Trade::Oil, "PWP", "2215 Elevator Rd", "Salina", "KS", "67401",
     "785", "prairiewick"},
    {"Watchcrane Safety", Trade::Safety, "WCS", "1188 Beacon St", "Mobile", "AL", "36602", "251",
     "watchcrane"},
    {"Hollinsferry Safety Supply", Trade::Safety, "HSS", "63 Ferry Rd", "Baltimore", "MD", "21230",
     "410", "hollinsferry"},
    {"Tidymeadow Janitorial", Trade::Safety, "TMJ", "900 Orchard Pkwy", "Yakima", "WA", "98902",
     "509", "tidymeadow"},
    {"Sundry House Paper", Trade::Safety, "SHP", "35 Pulp Mill Rd", "Bangor", "ME", "04401", "207",
     "sundryhouse"},
    {"Ravensmoor Fluid Power", Trade::FluidPower, "RFP", "2750 Piston Way", "Racine", "WI", "53403",
     "262", "ravensmoor"},
    {"Kettlewick Hydraulics", Trade::FluidPower, "KWH", "118 Spool St", "Canton", "OH", "44706",
     "330", "kettlewick"},
    {"Piston Creek Pneumatics", Trade::FluidPower, "PCP", "4021 Airline Hwy", "Macon", "GA",
     "31216", "478", "pistoncreek"},
    {"Édouard Marchand Filtration", Trade::Filter, "EMF", "1200 rue Duvernay", "Plattsburgh", "NY",
     "12901", "518", "emarchand"},
    {"Clearhaven Filter", Trade::Filter, "CHF", "86 Pleat Dr", "Louisville", "KY", "40213", "502",
     "clearhaven"},
    {"Whitcombe Glen Air", Trade::Filter, "WGA", "5 Windmill Ct", "Des Moines", "IA", "50313",
     "515", "whitcombeglen"},
    {"Northlamp Comfort Parts", Trade::Climate, "NCP", "2044 Degree Day Rd", "Fargo", "ND", "58102",
     "701", "northlamp"},
    {"Frostbourne Refrigeration", Trade::Climate, "FBR", "611 Icehouse Sq", "Syracuse", "NY",
     "13204", "315", "frostbourne"},
    {"Anvil Terrace Tool", Trade::Tool, "ATT", "17 Hammer St", "Springfield", "MA", "01103", "413",
     "anvilterrace"},
    {"Emberlow Welding Supply", Trade::Tool, "EWS", "3905 Arc Ave", "Gary", "IN", "46402", "219",
     "emberlow"},
    {"Carrickmuir Abrasives", Trade::Tool, "CMA", "240 Grit Rd", "Worcester", "MA", "01604", "508",
     "carrickmuir"},
    {"Rotorvale Motor Works", Trade::Motor, "RMW", "7701 Armature Dr", "St. Louis", "MO", "63120",
     "314", "rotorvale"},
    {"Meridew Drives", Trade::Motor, "MDD", "52 Stator Park", "Milwaukee", "WI", "53209", "414",
     "meridew"},
    {"Gaugewell Instruments", Trade::Gauge, "GWI", "31 Bourdon Ln", "Norwalk", "CT", "06854", "203",
     "gaugewell"},
    {"Santorelle Measurement", Trade::Gauge, "SMI", "1625 Dial Rd", "San Jose", "CA", "95112",
     "408", "santorelle"},
    {"Sablepoint Coatings", Trade::Coating, "SPC", "480 Pigment Way", "Newark", "NJ", "07105",
     "973", "sablepoint"},
    {"Hartsmoor Mill Supply", Trade::General, "HMS", "1 Warehouse Row", "Columbus", "OH", "43207",
     "614", "hartsmoor"},
    {"Old Quayside Industrial", Trade::General, "OQI", "2600 Harbor Dr", "Norfolk", "VA", "23502",
     "757", "oldquayside"},
    {"Blue Gannet MRO", Trade::General, "BGM", "812 Terminal Rd", "Portland", "OR", "97203", "503",
     "bluegannet"},
    {"Müller Stockhaus", Trade::General, "MSH", "5510 Depot St", "Cincinnati", "OH", "45217", "513",
     "muellerstockhaus"}};

constexpr Employee kEmployees[] = {
    {"101", "Dana Whitford", "IRPSHTU", 3},  {"214", "René Castillo", "IRPSHT", 2},
    {"042", "Marcus Oyelaran", "irPSht", 2}, {"377", "Priya Nambiar", "iRpSt", 2},
    {"450", "Tom Hadley", "ipS", 1},         {"9001", "Auditor", "irpsht", 1}};

constexpr std::string_view kContacts[] = {
    "Alice Brandt",    "Bob Tierney",     "Carla Espósito", "Deshawn Miles", "Ellen Kowalski",
    "Frank Ibarra",    "Grace Lindqvist", "Hugo Marchetti", "Irene Sato",    "Joel Penner",
    "Katrin Vogel",    "Liam Orchard",    "Maya Fernández", "Noah Stengel",  "Opal Ritchie",
    "Pete Vandermark", "Rosa Delgado",    "Steve Nakamura", "Tessa Boyle",   "Victor Hale"};

constexpr std::string_view kProfitCenters[] = {"Main Plant", "Powerhouse", "Fleet Garage"};

}  // namespace

std::span<const Vendor> Vendors() {
  return kVendors;
}
std::span<const Employee> Employees() {
  return kEmployees;
}
std::span<const std::string_view> ContactNames() {
  return kContacts;
}
std::span<const std::string_view> ProfitCenterNames() {
  return kProfitCenters;
}

}  // namespace kvi
