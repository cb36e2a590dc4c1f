#include "section_reader.h"

#include <cstdlib>
#include <cstring>

#include "ebo_log.h"
#include "row_scan.h"

#if defined(__STRICT_ANSI__) && !defined(_GNU_SOURCE)
extern "C" char* strdup(const char* text);  // not ISO C, so a strict library hides it
#endif

namespace {

// A section while it is being read. Lives on its reader's stack.
struct Reading {
    Reading(const EboSection& itsSection, void* parser, const char* root, int32_t* mask)
        : section(itsSection), model_en(mask) {
        static_cast<KAJsonParser*>(parser)->getOptions(root, section.name, &keys);
    }

    const EboSection& section;
    int32_t* const model_en;
    void* record = KA_NULL;
    KaMetaData keys;             // the framework's view of the section's keys
    size_t filled = 0;           // bytes of `table`
    char table[kEboTableBytes];  // the rows of one table until its last
};

// A row's message is the complete literal of its table, so the format is not a literal here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
void reportMissing(const EboSection& section, const EboKeyRow& row) {
    ka_err(EBO_ERROR, row.text, section.function, static_cast<int>(row.line));
}
#pragma GCC diagnostic pop

// The low 16 bits.
int16_t narrow(int32_t value) {
    return static_cast<int16_t>(value);
}

char* fieldOf(const EboKeyRow& row, void* record) {
    return static_cast<char*>(record) + row.offset;
}

void storeInt(const Reading& reading, const EboKeyRow& row, int32_t value) {
    if (row.kind == EboKeyKind::MaskBit) {
        if (value == 1) *reading.model_en |= 1 << row.offset;  // on purpose whatever the status
        return;
    }
    void* const field = fieldOf(row, reading.record);
    if (row.kind == EboKeyKind::Flag) value = value != 0 ? 1 : 0;
    if (row.kind == EboKeyKind::Int16) {
        *static_cast<int16_t*>(field) = narrow(value);
    } else {
        *static_cast<int32_t*>(field) = value;
    }
}

void storeFloats(const char* text, size_t count, float* field) {
    EboScanner scanner(text);
    for (size_t i = 0; i < count && scanner.real(&field[i]); ++i) {
    }
}

// A second integer that the text does not supply is the upper half of the first, on purpose.
void storePair(const char* text, int16_t* field) {
    int32_t first = 0;
    int32_t second = 0;
    EboScanner scanner(text);
    if (!scanner.integer(&first)) return;
    if (!scanner.integer(&second)) second = static_cast<int32_t>(static_cast<uint32_t>(first) >> 16);
    field[0] = narrow(first);
    field[1] = narrow(second);
}

// On purpose a table goes into the record as a whole, after its last row. Numbers that a text does not supply
// are 0.
void storeTableRow(Reading& reading, const EboKeyRow& row, const char* text) {
    float floats[kEboRowNumbers] = {};
    int16_t pair[2] = {};
    const bool isPair = row.kind == EboKeyKind::IntRow;
    isPair ? storePair(text, pair) : storeFloats(text, row.count, floats);
    const size_t before = reading.filled;
    const size_t size = row.count * (isPair ? sizeof(int16_t) : sizeof(float));
    std::memcpy(reading.table + before, isPair ? static_cast<const void*>(pair) : floats, size);
    reading.filled = before + size;
    if (row.toCome > 0) return;
    std::memcpy(fieldOf(row, reading.record) - before, reading.table, reading.filled);
    reading.filled = 0;
}

// *text becomes the value of a key that holds one; whatever a lookup leaves there that finds nothing.
bool findAndStore(Reading& reading, const EboKeyRow& row, const char** text) {
    switch (row.kind) {
        case EboKeyKind::Int32:
        case EboKeyKind::Int16:
        case EboKeyKind::Flag:
        case EboKeyKind::MaskBit: {
            int value = 0;
            if (!reading.keys.findInt32(row.key, &value)) return false;
            storeInt(reading, row, value);
            return true;
        }
        case EboKeyKind::Float: {
            float value = 0.0F;
            if (!reading.keys.findFloat(row.key, &value)) return false;
            std::memcpy(fieldOf(row, reading.record), &value, sizeof(value));
            return true;
        }
        default:
            if (!reading.keys.findCString(row.key, text)) return false;
            if (row.kind == EboKeyKind::FloatRow || row.kind == EboKeyKind::IntRow) {
                storeTableRow(reading, row, *text);
            } else if (row.kind == EboKeyKind::Word) {
                eboStoreText(reading.section, row, *text, reading.record);
            }
            return true;
    }
}

void storePreset(const Reading& reading, const EboKeyRow& row) {
    int32_t preset = 0;
    EboScanner(row.text).integer(&preset);
    storeInt(reading, row, preset);
}

bool readKey(Reading& reading, const EboKeyRow& row) {
    const EboSection& section = reading.section;
    const char* text = KA_NULL;
    if (row.ifMissing == EboIfMissing::NoKey || !findAndStore(reading, row, &text)) {
        if (row.ifMissing == EboIfMissing::Fails) {
            reportMissing(section, row);
            return false;
        }
        text = KA_NULL;
        if (row.text != KA_NULL) storePreset(reading, row);
    }
    if (section.special != KA_NULL) section.special(section, row, text, reading.record);
    return true;
}

// The bit that an enabled section sets under this root.
int32_t bitUnder(const EboSection& section, const char* root) {
    if (section.playbackBit == 0 || util_strcasecmp(root, "ebo_ao_configs") != 0) return section.bit;
    return static_cast<int32_t>(section.playbackBit);
}

enum class Status { Missing, Disabled, Enabled };

// Sets `bit` in the mask when the section is enabled, and reports a missing status, and a disabled section
// where that is reported.
Status readStatus(const Reading& reading, int32_t bit) {
    const EboSection& section = reading.section;
    const EboKeyRow& row = section.rows[0];
    const char* status = KA_NULL;
    if (!reading.keys.findCString(row.key, &status)) {
        if (row.ifMissing != EboIfMissing::Fails) return Status::Disabled;
        reportMissing(section, row);
        return Status::Missing;
    }
    if (util_strcasecmp(status, "enable") == 0) {
        // On purpose no bit of the caller's mask is that of "delay".
        if (section.container != EboContainer::EchoCanceller) *reading.model_en |= bit;
        return Status::Enabled;
    }
    if (section.notEnabled != KA_NULL)
        eboLogLine(section.notEnabled, section.function, static_cast<int>(section.line));
    return Status::Disabled;
}

bool readsKeys(const Reading& reading, int32_t bit, Status status) {
    switch (reading.section.whenDisabled) {
        case EboDisabled::IsRead:
            return true;
        case EboDisabled::GoesByMask:
            return (*reading.model_en & bit) != 0;
        default:
            return status == Status::Enabled;
    }
}

bool readKeys(Reading& reading) {
    const EboKeyRow* const end = reading.section.rows + reading.section.rowCount;
    for (const EboKeyRow* row = reading.section.rows + 1; row < end; ++row) {
        if (!readKey(reading, *row)) return false;
    }
    return true;
}

// The bit stays set on purpose.
void* fail(const Reading& reading) {
    void* record = reading.record;
    if (reading.section.releasedByHost != 0) {
        ka_mem_safe_free(&record, reading.section.function);
    } else if (record != KA_NULL) {
        std::free(record);  // on purpose not ka_mem_safe_free
    }
    return KA_NULL;
}

}  // namespace

void* eboMakeBlock(size_t size, const char* assertion, const char* function, int line) {
    void* block = ka_mem_malloc(size, function);
    if (block == KA_NULL) eboAssertFailed(assertion, function, line);
    ka_memset(block, 0, size);
    return block;
}

void eboStoreText(const EboSection& section, const EboKeyRow& row, const char* text, void* record) {
    char* const field = fieldOf(row, record);
    switch (row.kind) {
        case EboKeyKind::FloatRow:
            return storeFloats(text, row.count, reinterpret_cast<float*>(field));
        case EboKeyKind::IntRow:
            return storePair(text, reinterpret_cast<int16_t*>(field));
        case EboKeyKind::Word:
            if (text[0] != '\0') *reinterpret_cast<char**>(field) = strdup(text);
            return;
        default:
            return section.special(section, row, text, record);
    }
}

void* eboReadSection(void* parser, const char* root, int32_t* model_en, const EboSection& section) {
    if (parser == KA_NULL || root == KA_NULL || model_en == KA_NULL) return KA_NULL;
    const int32_t bit = bitUnder(section, root);
    Reading reading(section, parser, root, model_en);
    if (section.recordSize > 0) {
        reading.record = eboMakeBlock(section.recordSize, section.assertion, section.function,
                                      static_cast<int>(section.line));
    }
    const Status status = readStatus(reading, bit);
    if (status == Status::Missing) return fail(reading);
    if (!readsKeys(reading, bit, status)) {
        if (section.whenDisabled != EboDisabled::LeavesNoRecord) return reading.record;
        ka_mem_safe_free(&reading.record, section.function);  // on purpose not free(), unlike a failure
        return KA_NULL;
    }
    if (!readKeys(reading)) return fail(reading);
    return reading.record != KA_NULL ? reading.record : model_en;
}
