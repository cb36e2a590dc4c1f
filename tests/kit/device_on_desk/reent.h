// In the place of newlib's: its allocator takes one, and does not look at it.
#pragma once

struct _reent;
