#pragma once

/// Marks what the library shows to the programs and modules that are linked with it. Everything else stays inside.
#define HIERFIT_EXPORT __attribute__((visibility("default")))
