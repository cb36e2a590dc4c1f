#pragma once

// The nearest float to any JSON number: infinity or zero where no float is near.
float nearestNumber(const char* begin, const char* end);
