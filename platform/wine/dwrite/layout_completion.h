#pragma once

#include <windows.h>

#include <dwrite.h>

namespace completion {

/// Completes the text layouts of the system's DirectWrite, by means of a factory of it; only the first call
/// does anything. Throws completion::failure and what table_slot throws.
void complete_text_layouts(IDWriteFactory* factory);

}  // namespace completion
