#pragma once

/// The longest that a test waits for what comes within an instant on an idle machine, in
/// milliseconds.
constexpr int patience = 120000;
