// The engine of the README's host.
#include <cstdio>

#include <ebo_config.h>

void runEngine(const EboAecParam* aec, const EboBeamFormParam* bf);

void runEngine(const EboAecParam* aec, const EboBeamFormParam* bf) {
    std::fprintf(stderr, "engine: aec 0x%x, filter %d, beamformer 0x%x\n",
                 static_cast<unsigned>(aec->model_aec_en), aec->filter_len,
                 static_cast<unsigned>(bf->model_en));
}
