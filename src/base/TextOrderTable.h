#pragma once

#include <string_view>

namespace kvi {

// The letters of JET1 in their order: a word a base letter, the base first and its accents behind
// it, each letter as its small and its capital form (twice the same where it has one form only).
// PINNED: indexes in files out there are built under this order, so a change here reads as a
// damaged file. Another order is another collation, under another name.
// clang-format off
inline constexpr std::u32string_view kJet1Letters =
    U"aAàÀáÁâÂãÃäÄåÅæÆāĀăĂąĄǎǍǟǞǡǠǣǢǻǺǽǼȁȀȃȂȧȦḁḀẚẚạẠảẢấẤầẦẩẨẫẪậẬắẮằẰẳẲẵẴặẶ bBḃḂḅḄḇḆ "
    U"cCçÇćĆĉĈċĊčČḉḈ dDðÐďĎđĐǆǄǳǱḋḊḍḌḏḎḑḐḓḒẟẟ "
    U"eEèÈéÉêÊëËēĒĕĔėĖęĘěĚȅȄȇȆȩȨəƏḕḔḗḖḙḘḛḚḝḜẹẸẻẺẽẼếẾềỀểỂễỄệỆ fFƒƑḟḞ gGĝĜğĞġĠģĢǧǦǵǴḡḠ "
    U"hHĥĤħĦȟȞḣḢḥḤḧḦḩḨḫḪẖẖ iIìÌíÍîÎïÏĩĨīĪĭĬįĮİİııĳĲǐǏȉȈȋȊḭḬḯḮỉỈịỊ jJĵĴǰǰȷȷ kKķĶĸĸǩǨḱḰḳḲḵḴ "
    U"lLĺĹļĻľĽŀĿłŁǉǇḷḶḹḸḻḺḽḼ mMḿḾṁṀṃṂ nNñÑńŃņŅňŇŉŉŋŊǌǊǹǸṅṄṇṆṉṈṋṊ "
    U"oOòÒóÓôÔõÕöÖøØōŌŏŎőŐœŒơƠǒǑǫǪǭǬǿǾȍȌȏȎȫȪȭȬȯȮȱȰṍṌṏṎṑṐṓṒọỌỏỎốỐồỒổỔỗỖộỘớỚờỜởỞỡỠợỢ pPṕṔṗṖ qQ "
    U"rRŕŔŗŖřŘȑȐȓȒṙṘṛṚṝṜṟṞ sSßẞśŚŝŜşŞšŠșȘṡṠṣṢṥṤṧṦṩṨ tTþÞţŢťŤŧŦțȚṫṪṭṬṯṮṱṰẗẗ "
    U"uUùÙúÚûÛüÜũŨūŪŭŬůŮűŰųŲưƯǔǓǖǕǘǗǚǙǜǛȕȔȗȖṳṲṵṴṷṶṹṸṻṺụỤủỦứỨừỪửỬữỮựỰ vVṽṼṿṾ wWŵŴẁẀẃẂẅẄẇẆẉẈẘẘ "
    U"xXẋẊẍẌ yYýÝÿŸŷŶȳȲẏẎẙẙỳỲỵỴỷỶỹỸ zZźŹżŻžŽẑẐẓẒẕẔ "
    U"ƀɃ ƃƂ ƅƄ ƈƇ ƌƋ ƕǶ ƙƘ ƚȽ ƞȠ ƣƢ ƥƤ ƨƧ ƭƬ ƴƳ ƶƵ ƹƸ ƽƼ ƿǷ ǝƎ ǥǤ ǯǮ ȝȜ ȣȢ ȥȤ ȼȻ ɂɁ ɇɆ ɉɈ ɋɊ "
    U"ɍɌ ɏɎ ỻỺ ỽỼ ỿỾ "
    U"αΑάΆ βΒ γΓ δΔ εΕέΈ ζΖ ηΗήΉ θΘ ιΙΐΐίΊϊΪ κΚ λΛ μΜ νΝ ξΞ οΟόΌ πΠ ρΡ σΣ τΤ υΥΰΰϋΫύΎ φΦ χΧ "
    U"ψΨ ωΩώΏ "
    U"ͱͰ ͳͲ ͷͶ ͻϽ ͼϾ ͽϿ ϗϏ ϙϘ ϛϚ ϝϜ ϟϞ ϡϠ ϣϢ ϥϤ ϧϦ ϩϨ ϫϪ ϭϬ ϯϮ ϲϹ ϳͿ ϸϷ ϻϺ "
    U"аАӑӐӓӒ бБ вВ гГ ґҐ ѓЃ дД ђЂ еЕѐЀёЁӗӖ єЄ жЖӂӁӝӜ зЗӟӞ ѕЅ иИѝЍӣӢӥӤ іІ їЇ йЙ јЈ кК ќЌ лЛ љЉ "
    U"мМ нН њЊ оОӧӦ пП рР сС тТ ћЋ уУӯӮӱӰӳӲ ўЎ фФ хХ цЦ чЧӵӴ џЏ шШ щЩ ъЪ ыЫӹӸ ьЬ эЭӭӬ юЮ яЯ "
    U"ѡѠ ѣѢ ѥѤ ѧѦ ѩѨ ѫѪ ѭѬ ѯѮ ѱѰ ѳѲ ѵѴѷѶ ѹѸ ѻѺ ѽѼ ѿѾ ҁҀ ҋҊ ҍҌ ҏҎ ғҒ ҕҔ җҖ ҙҘ қҚ ҝҜ ҟҞ ҡҠ ңҢ "
    U"ҥҤ ҧҦ ҩҨ ҫҪ ҭҬ үҮ ұҰ ҳҲ ҵҴ ҷҶ ҹҸ һҺ ҽҼ ҿҾ ӄӃ ӆӅ ӈӇ ӊӉ ӌӋ ӎӍ ӏӀ ӕӔ әӘӛӚ ӡӠ өӨӫӪ ӷӶ ӻӺ ӽӼ "
    U"ӿӾ ԁԀ ԃԂ ԅԄ ԇԆ ԉԈ ԋԊ ԍԌ ԏԎ ԑԐ ԓԒ ԕԔ ԗԖ ԙԘ ԛԚ ԝԜ ԟԞ ԡԠ ԣԢ ԥԤ ԧԦ ԩԨ ԫԪ ԭԬ ԯԮ ";
// clang-format on

// Letters that are another form of a letter above.
struct Jet1Variant {
  char32_t letter, same;
};
inline constexpr Jet1Variant kJet1Variants[] = {
    {U'µ', U'μ'}, {U'ſ', U's'}, {U'ǅ', U'ǆ'}, {U'ǈ', U'ǉ'}, {U'ǋ', U'ǌ'}, {U'ǲ', U'ǳ'},
    {U'ς', U'σ'}, {U'ϐ', U'β'}, {U'ϑ', U'θ'}, {U'ϕ', U'φ'}, {U'ϖ', U'π'}, {U'ϰ', U'κ'},
    {U'ϱ', U'ρ'}, {U'ϴ', U'θ'}, {U'ϵ', U'ε'}, {U'ẛ', U'ṡ'}};

}  // namespace kvi
