#include "labels/BarCode.h"

#include <zint.h>

#include <memory>

namespace kvi {

namespace {

struct Deleter {
  void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};

constexpr double kUnitsPerModule = 2;  // of the library's drawing at scale 1

}  // namespace

std::optional<BarCode> MakeBarCode(const std::string& text, BarCodeKind kind) {
  const std::unique_ptr<zint_symbol, Deleter> symbol(ZBarcode_Create());
  symbol->symbology = kind == BarCodeKind::QR ? BARCODE_QRCODE : BARCODE_CODE128;
  symbol->input_mode = UNICODE_MODE;
  symbol->show_hrt = 0;
  const int failed = ZBarcode_Encode_and_Buffer_Vector(
      symbol.get(), reinterpret_cast<const unsigned char*>(text.data()),
      static_cast<int>(text.size()), 0);
  if (failed >= ZINT_ERROR || symbol->vector == nullptr) return std::nullopt;
  BarCode code{
      symbol->vector->width / kUnitsPerModule, symbol->vector->height / kUnitsPerModule, {}};
  for (const zint_vector_rect* bar = symbol->vector->rectangles; bar != nullptr; bar = bar->next)
    code.bars.push_back({bar->x / kUnitsPerModule, bar->y / kUnitsPerModule,
                         bar->width / kUnitsPerModule, bar->height / kUnitsPerModule});
  return code;
}

}  // namespace kvi
