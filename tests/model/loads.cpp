// The five loads of the model.
#include <cstring>

#include "model/readers.h"

namespace model {

namespace {

// The readers of the capture chain behind "bf", in their order. Their records hang on the container; a reader
// that fails leaves its slot null. Stops at the first failure if it is told to.
bool chain(Readers& in, Records& r, bool strict) {
    int32_t& mask = r.bf.model_en;
    // A record of a reader that fails is lost with what it held.
    const auto slot = [](auto*& pointer, auto& record, bool succeeded) {
        pointer = succeeded ? &record : nullptr;
        return succeeded;
    };
    if (!in.fastAec(mask) && strict) return false;
    if (!in.gsc(mask) && strict) return false;
    if (!in.wind(mask) && strict) return false;
    if (!slot(r.bf.agc, r.agc, in.agc(r.agc, mask)) && strict) return false;
    if (!slot(r.bf.anr, r.anr, in.anr(r.anr, mask)) && strict) return false;
    if (!slot(r.bf.nlp, r.nlp, in.nlp(r.nlp, mask)) && strict) return false;
    if (!slot(r.bf.dereverb, r.dereverb, in.dereverb(r.dereverb, mask)) && strict) return false;
    if (!slot(r.bf.cng, r.cng, in.cng(r.cng, mask)) && strict) return false;
    if (!slot(r.bf.dtd, r.dtd, in.dtd(r.dtd, mask)) && strict) return false;
    if (!slot(r.bf.aes, r.aes, in.aes(r.aes, mask)) && strict) return false;
    if (!slot(r.bf.howl, r.howl, in.howl(r.howl, mask)) && strict) return false;
    if (!slot(r.bf.doa, r.doa, in.doa(r.doa, mask)) && strict) return false;
    slot(r.bf.wakeup, r.wakeup, in.wakeup(r.wakeup, mask));
    return slot(r.bf.ainr, r.ainr, in.ainr(r.ainr, mask)) || !strict;
}

// "aec" and then "delay", which never fails a load.
bool echoCanceller(Readers& in, Expectation& e, int32_t& mask) {
    Records& r = e.records;
    const bool succeeded = in.aec(r.aec, mask);
    if (e.aborts || !succeeded) return false;
    if (in.delay(r.delay)) {
        r.aec.delay = &r.delay;
        r.aec.model_aec_en |= 0x1;
    }
    return true;
}

// A failure abandons the map and the texts that were read.
int abandonedBlocks(const Records& r) {
    return (r.aec.Array_list ? 1 : 0) + (r.wakeup.model_word1 ? 1 : 0) + (r.wakeup.model_word2 ? 1 : 0);
}

void full(const Value& document, Expectation& e) {
    Records& r = e.records;
    Readers in(document, "ebo_configs", e);
    if (!echoCanceller(in, e, r.ebo.model_en) || !in.bf(r.bf, r.ebo.model_en) || !chain(in, r, true)) {
        e.leaks = abandonedBlocks(r);
        return;
    }
    r.ebo.aec = &r.aec;
    r.ebo.bf = &r.bf;
    e.result = &r.ebo;
    dumpAec(r.aec, e.dump);
    dumpBeamForm(r.bf, e.dump);
}

void aecFile(const Value& document, Expectation& e) {
    Readers in(document, "ebo_configs", e);
    int32_t lost = 0;
    if (!echoCanceller(in, e, lost)) {
        e.leaks = abandonedBlocks(e.records);
        return;
    }
    e.result = &e.records.aec;
    dumpAec(e.records.aec, e.dump);
}

void beamFormFile(const Value& document, Expectation& e) {
    Readers in(document, "ebo_configs", e);
    int32_t lost = 0;
    if (!in.bf(e.records.bf, lost)) return;
    chain(in, e.records, false);
    e.result = &e.records.bf;
    dumpBeamForm(e.records.bf, e.dump);
}

void aoFile(const Value& document, Expectation& e) {
    Records& r = e.records;
    Readers in(document, "ebo_ao_configs", e);
    r.ebo.model_en = 4;
    r.ebo.rx = &r.rx;
    if (in.anr(r.anr, r.rx.model_en)) r.rx.anr = &r.anr;
    if (in.howl(r.howl, r.rx.model_en)) r.rx.howl = &r.howl;
    e.result = &r.ebo;
    dumpAo(r.rx, e.dump);
}

void agcFile(const Value& document, Expectation& e) {
    Readers in(document, "ebo_agc_configs", e);
    int32_t lost = 0;
    e.leaks = 1;  // a cleared record that nobody uses
    if (in.agc(e.records.agc, lost)) e.result = &e.records.agc;
}

}  // namespace

Expectation::Expectation() {
    std::memset(static_cast<void*>(&records), 0, sizeof records);
}

const char* nameOf(Loader loader) {
    switch (loader) {
        case Loader::Full:
            return "parseEboConfigs";
        case Loader::Aec:
            return "parseEboAecConfigs";
        case Loader::BeamForm:
            return "parseEboBeamFormConfigs";
        case Loader::Ao:
            return "parseEboAoConfigs";
        case Loader::Agc:
            return "parseEboAgcConfigsFile";
    }
    return "?";
}

void expect(Loader loader, const std::optional<Value>& document, Expectation& e) {
    e.rejected = !document.has_value();
    if (e.rejected) return;
    switch (loader) {
        case Loader::Full:
            return full(*document, e);
        case Loader::Aec:
            return aecFile(*document, e);
        case Loader::BeamForm:
            return beamFormFile(*document, e);
        case Loader::Ao:
            return aoFile(*document, e);
        case Loader::Agc:
            return agcFile(*document, e);
    }
}

}  // namespace model
