#include "section_reader.h"

#include <cstdlib>
#include <cstring>

namespace {

// A row's message is the complete literal of its table, so the format is not a literal here.
void reportMissing(const EboReading& reading, const EboKeyRow& row) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    ka_err(EBO_ERROR, row.missing, reading.function, row.line);
#pragma GCC diagnostic pop
}

// The only place where integers are stored, and so narrowed.
void storeInt(EboKeyKind kind, int value, void* field) {
    if (kind == EboKeyKind::Flag) value = value != 0 ? 1 : 0;
    if (kind == EboKeyKind::Int16) {
        *static_cast<int16_t*>(field) = static_cast<int16_t>(value);
    } else {
        *static_cast<int32_t*>(field) = value;
    }
}

bool findAndStore(const EboReading& reading, const EboKeyRow& row, void* record) {
    void* field = static_cast<char*>(record) + row.offset;
    switch (row.kind) {
        case EboKeyKind::Int32:
        case EboKeyKind::Int16:
        case EboKeyKind::Flag: {
            int value = 0;
            if (!reading.keys.findInt32(row.key, &value)) return false;
            storeInt(row.kind, value, field);
            return true;
        }
        case EboKeyKind::Float: {
            float value = 0.0F;
            if (!reading.keys.findFloat(row.key, &value)) return false;
            *static_cast<float*>(field) = value;
            return true;
        }
        default: {
            const char* text = KA_NULL;
            if (!reading.keys.findCString(row.key, &text)) return false;
            row.take(row, text, record, reading.function);
            return true;
        }
    }
}

// The bit that an enabled section sets under this root.
int32_t bitUnder(const EboSection& section, const char* root) {
    if (section.playbackBit == 0 || util_strcasecmp(root, "ebo_ao_configs") != 0) return section.bit;
    return section.playbackBit;
}

bool readKey(const EboReading& reading, const EboKeyRow& row, void* record) {
    if (!findAndStore(reading, row, record) && row.missing != KA_NULL) {
        reportMissing(reading, row);
        return false;
    }
    if (row.review != KA_NULL) row.review(record, reading.function);
    return true;
}

}  // namespace

EboReading::EboReading(const EboSection& section_, void* parser, const char* root, const char* function_)
    : section(section_), function(function_) {
    static_cast<KAJsonParser*>(parser)->getOptions(root, section.name, &keys);
}

EboStatus eboReadStatus(const EboReading& reading, int32_t bit, int* model_en) {
    const EboSection& section = reading.section;
    const EboKeyRow& row = section.rows[0];
    const char* status = KA_NULL;
    if (!reading.keys.findCString(row.key, &status)) {
        if (row.missing != KA_NULL) reportMissing(reading, row);
        return EboStatus::Missing;
    }
    if (util_strcasecmp(status, "enable") == 0) {
        *model_en |= bit;
        return EboStatus::Enabled;
    }
    if (section.notEnabled != KA_NULL) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
        ka_log(EBO_INFO, section.notEnabled, reading.function, row.line);
#pragma GCC diagnostic pop
    }
    return EboStatus::Disabled;
}

bool eboReadKeys(const EboReading& reading, void* record) {
    const EboKeyRow* const end = reading.section.rows + reading.section.rowCount;
    for (const EboKeyRow* row = reading.section.rows + 1; row < end; ++row) {
        if (!readKey(reading, *row, record)) return false;
    }
    return true;
}

void* eboMakeRecord(size_t size, const char* assertion, const char* function, int line) {
    void* record = ka_mem_malloc(size, function);
    if (record == KA_NULL) eboAssertFailed(assertion, function, line);
    ka_memset(record, 0, size);
    return record;
}

void* eboReadSection(const EboSection& section, void* parser, const char* root, int* model_en,
                     const char* function, int line) {
    if (parser == KA_NULL || root == KA_NULL || model_en == KA_NULL) return KA_NULL;
    const int32_t bit = bitUnder(section, root);
    const EboReading reading(section, parser, root, function);
    void* record = eboMakeRecord(section.recordSize, section.assertion, function, line);
    if (eboReadStatus(reading, bit, model_en) == EboStatus::Missing || !eboReadKeys(reading, record)) {
        std::free(record);  // on purpose not ka_mem_safe_free, here and on every failure of a section
        return KA_NULL;
    }
    return record;
}

int eboReadSwitch(const EboSection& section, void* parser, const char* root, int* model_en,
                  const char* function, void* keys) {
    if (parser == KA_NULL || root == KA_NULL || model_en == KA_NULL) return -1;
    const EboReading reading(section, parser, root, function);
    if (eboReadStatus(reading, section.bit, model_en) == EboStatus::Missing) return -1;
    return eboReadKeys(reading, keys) ? 0 : -1;
}

void eboTakeWord(const EboKeyRow& row, const char* text, void* record, const char* /*function*/) {
    if (text[0] == '\0') return;
    *reinterpret_cast<char**>(static_cast<char*>(record) + row.offset) = strdup(text);
}
