// The one header that a host includes.
#pragma once

#include "dump/ebo_dump.h"
#include "ebo_lifecycle.h"
#include "ebo_params.h"
#include "ebo_version.h"
#include "parse/ebo_parse.h"
