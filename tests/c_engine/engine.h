#pragma once

#include <ebo_params.h>

#ifdef __cplusplus
extern "C" {
#endif

// Prints what it was given; 0 when it can work with it.
int engineStart(const KAEboParam* ebo);

#ifdef __cplusplus
}
#endif
