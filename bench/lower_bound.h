// The floor a layout cannot go below: per layer one point on the ellipse (a sine, a cosine and a
// square root), one normalised normal, and three doubles written to the record.
#pragma once

#include "host_api.h"

#include <vector>

namespace bench {

// Places n = out.size() points evenly around an ellipse with half-axes a and b at height h.
void lower_bound_layout(std::vector<AEGP_ThreeDVal>& out, double a, double b, double h);

// Nanoseconds per layer of lower_bound_layout for 10,000 layers: the best of several timed runs
// of CPU time, measured once and kept.
double lower_bound_ns_per_layer();

// The same for place_evenly (placement_arithmetic.h): every operation "Distribute Evenly" must do
// to give its values, in a plain loop.
double arithmetic_ns_per_layer();

}  // namespace bench
