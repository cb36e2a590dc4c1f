// A device whose tuning is part of the program: nothing is read, copied or allocated.
#include <voice_tuning.h>

#include <initializer_list>

#include "board.h"

int main() {
    const EboWakeupParam* const wakeup = voice_tuning.bf->wakeup;
    for (const char* word : {wakeup->model_word1, wakeup->model_word2}) {
        if (word == nullptr) continue;
        boardWrite(word);
        boardWrite("\n");
    }
    return voice_tuning.model_en == (EBO_PATH_AEC | EBO_PATH_BF) ? 0 : 1;
}
