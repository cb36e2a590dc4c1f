#include "json_load.h"

#include <cstdlib>
#include <cstring>

#include "json_verdict.h"
#include "quick_scan.h"

bool loadJson(FileBuffer* file, JsonLoad* load) {
    if (file->size >= 3 && memcmp(file->text, "\xEF\xBB\xBF", 3) == 0) {
        load->reason = "a byte order mark: save the file as UTF-8 without one";
        load->located = true;
        return false;
    }
    // A tuning file has some 30 bytes per key, so this one allocation will do for it.
    load->capacity = file->size / 24 + 16;
    load->entries = static_cast<KaJsonEntry*>(malloc(load->capacity * sizeof(KaJsonEntry)));
    if (!load->entries) {
        load->reason = kOutOfMemory;
        return false;
    }
    if (quickScan(file, false, load)) return true;
    return !load->reason && isJson(*file, load) && quickScan(file, true, load);
}
