// The built-in defaults: each call writes the fields that have one, and no other.
#pragma once

#include <ebo_config.h>

#include <cstring>

void setDefaults(EboAnrParam& anr);
void setDefaults(EboAgcParam& agc);
void setDefaults(EboCngParam& cng);
void setDefaults(EboDtdParam& dtd);
void setDefaults(EboDereverbParam& dereverb);
void setDefaults(EboNlpParam& nlp);
void setDefaults(EboAesParam& aes);

// These leave the pointers alone.
void setDefaults(EboAecParam& aec);
void setDefaults(EboBeamFormParam& bf);
void setDefaults(EboRxParam& rx);
void setDefaults(KAEboParam& ebo);

// A record with its defaults, every other byte `fill`.
template <typename Record>
void setDefaultsOver(unsigned char fill, Record* record) {
    std::memset(record, fill, sizeof *record);
    setDefaults(*record);
}
