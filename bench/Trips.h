#pragma once

namespace kvi::bench {

// Does each work of the table in bench/trips once, after a warm-up, between marks that a trace of
// the process shows.
void MakeTrips();

}  // namespace kvi::bench
