#pragma once

// Clears to blue, fills the left half of the default framebuffer with red
// through a real shader program, and checks both halves read back.
void drawLeftHalfAndCheck();
