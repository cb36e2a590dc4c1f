// The ways of loading the capture path of a tuning file that are measured against each other.
#pragma once

#include <cstddef>

#include <ebo_params.h>

// Who takes the numbers out of the texts that hold a row of them.
enum class Rows {
    Sscanf,   // the C library, as a user would write it
    Scanner,  // this library's scanner: what is left is the difference between the JSON libraries
};

struct Loader {
    const char* name;
    // The caller owns the tree: destroyEboConfig(). Or null.
    KAEboParam* (*load)(const char* path, Rows rows);
};

extern const Loader kPeers[];
extern const size_t kPeerCount;

KAEboParam* loadByRapidJson(const char* path, Rows rows);
KAEboParam* loadBySimdjsonDom(const char* path, Rows rows);
KAEboParam* loadBySimdjsonOnDemand(const char* path, Rows rows);
KAEboParam* loadByNlohmann(const char* path, Rows rows);
KAEboParam* loadByCjson(const char* path, Rows rows);
KAEboParam* loadByJansson(const char* path, Rows rows);
KAEboParam* loadByJsonC(const char* path, Rows rows);

// The floor: open, fstat, read and close, and nothing done with the text. False when that fails.
bool readFileAlone(const char* path);
