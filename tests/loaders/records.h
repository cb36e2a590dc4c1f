// The records that the complete document of documents.h stands for.
#pragma once

#include <ebo_config.h>

#include <string>

// All bits that the complete document sets in the beamformer's mask.
constexpr int kAllModules = 0x3cdff;

void expectAec(const EboAecParam* aec);  // with its map and its delay record
// Null slots are passed over; wake-up and model path are read only with their bits.
void expectBeamForm(const EboBeamFormParam* bf, int model_en = kAllModules);
void expectAoAnr(const EboAnrParam* anr);
void expectAoHowl(const EboHowlParam* howl);
void expectAgcOfItsOwnFile(const EboAgcParam* agc);

// Which module records there are, in the order of their slots.
std::string slots(const EboBeamFormParam& bf);
constexpr const char* kAllSlots = "dereverb aes nlp anr agc cng dtd howl doa wakeup ainr ";
