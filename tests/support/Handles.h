#pragma once

#include <memory>

#include "interface/hierfit.h"

namespace hierfit::test {

struct Freer {
    void operator()(hf_run_t* run) const { hf_run_free(run); }
    void operator()(hf_settings* settings) const { hf_settings_free(settings); }
};

/// What the interface for C hands out, owned.
using Model = std::unique_ptr<hf_run_t, Freer>;
using Settings = std::unique_ptr<hf_settings, Freer>;

}  // namespace hierfit::test
