#include "sample/Catalogue.h"

namespace kvi {
namespace {

using namespace packing;

// What turns, seals, drives and holds.
constexpr Family kFamilies[] = {
    {"Bearings", "BRG", "Bearing %c%v, %m mm", "Ball bearing, deep groove, metric",
     "6000:10x26x8|6001:12x28x8|6002:15x32x9|6003:17x35x10|6004:20x42x12|6005:25x47x12|"
     "6006:30x55x13|6200:10x30x9|6201:12x32x10|6202:15x35x11|6203:17x40x12|6204:20x47x14|"
     "6205:25x52x15|6206:30x62x16|6207:35x72x17|6208:40x80x18|6209:45x85x19|6210:50x90x20|"
     "6304:20x52x15|6305:25x62x17|6306:30x72x19|6307:35x80x21|6308:40x90x23|6309:45x100x25|"
     "6310:50x110x27|6312:60x130x31",
     "-ZZ shielded|-2RS sealed|-2RS/C3 sealed", 320, 6450, kEach},
    {"Bearings", "TRB", "Tapered roller bearing %c, %m mm%v", "Tapered roller bearing, single row",
     "30203:17x40x13.25|30204:20x47x15.25|30205:25x52x16.25|30206:30x62x17.25|30207:35x72x18.25|"
     "30208:40x80x19.75|30210:50x90x21.75|32008:40x68x19|32010:50x80x20|32012:60x95x23",
     "|, cup and cone set", 1180, 5900, kEach},
    {"Bearings", "", "Pillow block %c, %m in bore%v", "Mounted bearing, two bolt, set screw lock",
     "UCP204:3/4|UCP205:1|UCP206:1-1/4|UCP207:1-7/16|UCP208:1-1/2|UCP209:1-3/4|UCP210:2|"
     "UCP212:2-7/16",
     "|, with end cap|, stainless insert", 1450, 9200, kEach},
    {"Bearings", "", "Flange bearing %c, %m in bore%v", "Mounted bearing, four bolt flange",
     "UCF204:3/4|UCF205:1|UCF206:1-1/4|UCF207:1-7/16|UCF208:1-1/2|UCF210:2", "|, stainless insert",
     1520, 7400, kEach},
    {"Bearings", "", "Needle bearing %c, %m mm%v", "Drawn cup needle roller bearing",
     "HK1010:10x14x10|HK1212:12x18x12|HK1516:15x21x16|HK2016:20x26x16|HK2520:25x32x20|"
     "HK3020:30x37x20",
     "|, sealed", 290, 1150, kEach},
    {"Bearings", "", "Rod end %c, %v", "Rod end, plated steel, PTFE lined",
     "1/4-28|5/16-24|3/8-24|1/2-20|5/8-18|3/4-16", "male right hand|male left hand|female", 640,
     2980, kEach},
    {"Belts", "", "V-belt %c 1/2 x %m in%v", "Classical V-belt, A section",
     "A26:28|A30:32|A34:36|A38:40|A42:44|A46:48|A50:52|A54:56|A58:60|A62:64|A68:70|A75:77|A85:87|"
     "A96:98|A105:107|A120:122",
     "|, notched", 690, 2240, kEach},
    {"Belts", "", "V-belt %c 21/32 x %m in%v", "Classical V-belt, B section",
     "B35:38|B38:41|B42:45|B46:49|B51:54|B54:57|B60:63|B66:69|B72:75|B78:81|B85:88|B90:93|B97:100|"
     "B105:108|B120:123|B136:139",
     "|, notched", 980, 3360, kEach},
    {"Belts", "", "Timing belt %c, %m pitch length%v", "Synchronous belt",
     "100XL037:10 in|130XL037:13 in|160XL037:16 in|200XL037:20 in|187L050:18.7 in|225L075:22.5 in|"
     "255L075:25.5 in|300L100:30 in|360H100:36 in|420H100:42 in|510H150:51 in",
     "|, urethane", 740, 5480, kEach},
    {"Belts", "", "Sheave %c single groove, %v bore", "Cast iron sheave, %m in outside diameter",
     "AK30:3.05|AK41:3.95|AK51:4.95|BK57:5.45|BK67:6.45|BK77:7.45|BK90:8.75|BK110:10.75",
     "5/8 in|7/8 in|1-1/8 in", 1240, 6350, kEach},
    {"Chain and sprockets", "", "Roller chain #%c, %v", "Roller chain, %m in pitch, 10 ft box",
     "35:3/8|40:1/2|50:5/8|60:3/4|80:1|100:1-1/4", "single strand|nickel plated|double strand",
     1650, 14800, kBoxOfChain},
    {"Chain and sprockets", "", "%v #%c", "Roller chain link, %m in pitch",
     "35:3/8|40:1/2|50:5/8|60:3/4|80:1|100:1-1/4", "Connecting link|Offset link", 115, 840, kEach},
    {"Chain and sprockets", "SPR", "Sprocket %c, %m teeth, %v bore", "Steel sprocket, B hub",
     "35B12:12|35B18:18|40B12:12|40B15:15|40B18:18|40B21:21|40B24:24|50B13:13|50B15:15|50B18:18|"
     "50B24:24|60B13:13|60B16:16|60B20:20|60B24:24|80B12:12|80B15:15|80B18:18",
     "plain|finished 1 in|finished 1-1/4 in", 860, 9350, kEach},
    {"Couplings", "", "Jaw coupling hub %c, %v bore", "Jaw coupling hub, sintered iron",
     "L050|L070|L075|L090|L095|L100|L110|L150", "1/2 in|5/8 in|7/8 in|1-1/8 in", 480, 5200, kEach},
    {"Couplings", "", "Coupling spider %c, %v", "Insert for jaw coupling",
     "L050|L070|L075|L090|L095|L100|L110|L150", "nitrile|urethane|bronze", 310, 2950, kEach},
    {"Couplings", "", "Taper lock bushing %c, %m in bore%v", "Taper lock bushing",
     "1008:3/4|1108:7/8|1210:1|1610:1-1/8|2012:1-3/8|2517:1-7/8|3020:2-7/16", "|, metric", 890,
     4450, kEach},
    {"Seals and gaskets", "", "O-ring %c %v, %m in", "O-ring, %v, bag of 100",
     "-006:1/8 x 1/4|-008:3/16 x 5/16|-010:1/4 x 3/8|-011:5/16 x 7/16|-012:3/8 x 1/2|"
     "-014:1/2 x 5/8|-016:5/8 x 3/4|-018:3/4 x 7/8|-020:7/8 x 1|-022:1 x 1-1/8|-110:3/8 x 9/16|"
     "-112:1/2 x 11/16|-116:3/4 x 15/16|-120:1 x 1-3/16|-210:3/4 x 1|-214:1 x 1-1/4|"
     "-218:1-1/4 x 1-1/2|-222:1-1/2 x 1-3/4|-226:2 x 2-1/4",
     "nitrile 70|EPDM 70|FKM 75|silicone 70", 420, 4800, kBagOf100},
    {"Seals and gaskets", "", "O-ring Ø %c x %m mm, %v", "O-ring, metric, by the piece",
     "20:2|25:3|30:3|40:3|50:4|65:4|80:5|100:5", "nitrile 70|FKM 75", 45, 390, kEach},
    {"Seals and gaskets", "", "Oil seal %c mm, %v", "Rotary shaft seal, double lip",
     "15x30x7|17x35x7|20x40x7|25x42x7|25x47x7|25x52x10|30x52x7|35x52x7|35x62x10|40x62x8|45x65x8|"
     "50x72x8|55x80x8|60x80x10|70x90x10",
     "nitrile|FKM", 245, 1680, kEach},
    {"Seals and gaskets", "", "Ring gasket %c in 150#, %v", "Gasket, raised face flange, %c\" pipe",
     "1/2|3/4|1|1-1/2|2|2-1/2|3|4|6|8", "red rubber|compressed fiber|graphite", 65, 980, kEach},
    {"Seals and gaskets", "", "Mechanical seal %c in, %v", "Pump shaft seal, single spring",
     "1/2|5/8|3/4|7/8|1|1-1/4|1-3/8|1-1/2|1-3/4", "carbon/ceramic|silicon carbide", 1890, 14600,
     kEach},
    {"Seals and gaskets", "", "Braided packing %c in, %v", "Compression packing, 25 ft spool",
     "1/4|5/16|3/8|1/2|5/8|3/4", "graphited|PTFE", 3150, 11800, kRoll25},
    {"Fasteners", "", "Hex cap screw %c in, %v", "Hex cap screw, coarse thread",
     "1/4-20 x 3/4|1/4-20 x 1|1/4-20 x 1-1/2|5/16-18 x 1|5/16-18 x 1-1/2|5/16-18 x 2|3/8-16 x 1|"
     "3/8-16 x 1-1/2|3/8-16 x 2|3/8-16 x 3|1/2-13 x 1-1/2|1/2-13 x 2|1/2-13 x 3|5/8-11 x 2|"
     "5/8-11 x 3|3/4-10 x 3",
     "grade 5 zinc|grade 8 yellow|18-8 stainless", 780, 7900, kBoxOf50},
    {"Fasteners", "", "%v %c", "%v, coarse thread",
     "1/4-20|5/16-18|3/8-16|7/16-14|1/2-13|5/8-11|3/4-10",
     "Hex nut, zinc|Hex nut, stainless|Nylon lock nut, zinc|Nylon lock nut, stainless", 410, 3950,
     kBoxOf100},
    {"Fasteners", "", "%v %c in", "%v, standard pattern", "1/4|5/16|3/8|7/16|1/2|5/8|3/4|1",
     "Flat washer, zinc|Flat washer, stainless|Split lock washer, zinc|Fender washer, zinc", 280,
     2650, kBoxOf100},
    {"Fasteners", "", "Socket head cap screw %c, %v", "Socket head cap screw, metric",
     "M4x12|M4x20|M5x16|M5x25|M6x16|M6x20|M6x30|M8x20|M8x30|M8x40|M10x25|M10x40|M12x35|M12x50",
     "class 12.9|A2 stainless", 690, 4900, kBoxOf50},
    {"Fasteners", "", "Wedge anchor %c in, %v", "Concrete wedge anchor",
     "1/4 x 1-3/4|3/8 x 3|3/8 x 3-3/4|1/2 x 3-3/4|1/2 x 5-1/2|5/8 x 5|3/4 x 7", "zinc|stainless",
     1350, 6900, kBoxOf25},
    {"Fasteners", "", "Self-drilling screw %c in, %v", "Self-drilling screw, hex washer head",
     "#8 x 3/4|#10 x 3/4|#10 x 1|#12 x 1|#12 x 1-1/2|1/4 x 1-1/2", "zinc|painted white", 540, 1480,
     kBoxOf100},
    {"Fasteners", "", "%v %c in", "Pin, steel",
     "1/16 x 1/2|3/32 x 1|1/8 x 1|1/8 x 1-1/2|3/16 x 2|1/4 x 2", "Cotter pin|Spring pin", 310, 1260,
     kBagOf100},
    {"Fasteners", "", "Threaded rod %c, %v", "Threaded rod, 10 ft",
     "1/4-20|3/8-16|1/2-13|5/8-11|3/4-10", "zinc|stainless", 520, 3980, kLength10},
    {"Fasteners", "", "Hose clamp %c in, %v", "Worm drive hose clamp, box of 10",
     "1/4 - 5/8|1/2 - 1|3/4 - 1-1/2|1-1/2 - 2-1/2|2 - 3|3 - 4", "zinc screw|all stainless", 640,
     1580, kBoxOf10},
    {"Hydraulics", "", "Hydraulic hose %c in, %v", "Hydraulic hose, 50 ft cut to order",
     "1/4|3/8|1/2|5/8|3/4|1", "one wire|two wire", 14800, 46500, kRoll100},
    {"Hydraulics", "", "Crimp fitting %c, %v", "Hose end, JIC 37 degree", "-4|-6|-8|-10|-12|-16",
     "female swivel|male|female 90 elbow", 385, 2890, kEach},
    {"Hydraulics", "", "Hydraulic cylinder %c in bore x %m in%v", "Tie rod cylinder, 2500 psi",
     "1-1/2:8|2:8|2:12|2-1/2:12|3:16|4:24", "|, clevis mount", 14500, 58900, kEach},
    {"Hydraulics", "", "Gear pump %c gpm, %v", "Hydraulic gear pump, cast iron", "3|5|8|11|16",
     "clockwise|counterclockwise", 18900, 52400, kEach},
    {"Hydraulics", "", "Quick coupler %c in, %v", "Flat face coupler", "1/4|3/8|1/2|3/4",
     "male|female", 2150, 5900, kEach},
    {"Pneumatics", "", "Push-in fitting %c mm x %m, %v", "Push-to-connect fitting, brass",
     "4:1/8|6:1/8|6:1/4|8:1/4|8:3/8|10:3/8|12:1/2", "straight|elbow|tee", 165, 640, kEach},
    {"Pneumatics", "", "Air tubing %c mm, %v", "Polyurethane tubing, 100 ft roll", "4|6|8|10|12",
     "blue|black|clear", 1900, 7600, kRoll100},
    {"Pneumatics", "", "Air cylinder %c mm bore x %m mm%v", "Double acting cylinder, magnetic",
     "20:50|25:50|32:80|32:160|40:100|50:100|63:160|80:200", "|, adjustable cushion", 3900, 21800,
     kEach},
    {"Pneumatics", "", "Filter regulator %c NPT, %v", "Air preparation unit", "1/4|3/8|1/2|3/4",
     "manual drain|auto drain|with lubricator", 4250, 14800, kEach},
    {"Pneumatics", "", "Solenoid valve 5/2 %c, %v", "Pilot operated air valve", "1/8|1/4|3/8|1/2",
     "24 VDC|120 VAC", 3980, 9900, kEach}};

}  // namespace

std::span<const Family> MechanicalFamilies() {
  return kFamilies;
}

}  // namespace kvi
