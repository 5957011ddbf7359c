#pragma once

#include <d2d1.h>

namespace completion {

/// Completes the geometries of every factory of the process: makes one of each kind and replaces in its table
/// what the system's own lacks, or answers wrongly. Only the first call works.
void complete_geometries(ID2D1Factory* factory);

}  // namespace completion
