// Owners of loaded records.
#pragma once

#include <ebo_config.h>

#include <memory>

template <auto Destroy>
struct Destroyer {
    template <class Record>
    void operator()(Record* record) const {
        Destroy(&record);
    }
};

using CaptureRoot = std::unique_ptr<KAEboParam, Destroyer<destroyEboConfig>>;
using PlaybackRoot = std::unique_ptr<KAEboParam, Destroyer<destroyEboAoConfig>>;
using AecRecord = std::unique_ptr<EboAecParam, Destroyer<destroyEboAecConfig>>;
using BeamFormRecord = std::unique_ptr<EboBeamFormParam, Destroyer<destroyEboBeamFormConfig>>;
using AgcRecord = std::unique_ptr<EboAgcParam, Destroyer<destroyEboAgcConfig>>;
