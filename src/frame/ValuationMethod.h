#pragma once

namespace kvi {

// How the money value of the stock is worked out.
enum class ValuationMethod { FIFO, Weighted, LastPrice };

}  // namespace kvi
