#pragma once
#include <functional>

// Runs work; a run-time error (or any other exception) thrown inside is shown in a critical box
// titled "Lapkeeper" with its description, the pointer goes back to default, and the result is
// false. The application object runs every event through it.
bool runTrapped(const std::function<bool()>& work);
