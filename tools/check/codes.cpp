#include "check/codes.h"

const std::vector<const CheckCode*>& checkCodes() {
#define EBO_CHECK_CODE(name, id, level, title) &(name),
    static const std::vector<const CheckCode*> codes = {EBO_CHECK_CODES(EBO_CHECK_CODE)};
#undef EBO_CHECK_CODE
    return codes;
}
