#include "section_reader.h"

#include <cstdlib>
#include <cstring>

#include "row_scan.h"

namespace {

// A row's message is the complete literal of its table, so the format is not a literal here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
void reportMissing(const EboSection& section, const EboKeyRow& row) {
    ka_err(EBO_ERROR, row.missing, section.function, static_cast<int>(row.line));
}
#pragma GCC diagnostic pop

// The low 16 bits.
int16_t narrow(int32_t value) {
    return static_cast<int16_t>(value);
}

void storeInt(EboKeyKind kind, int value, void* field) {
    if (kind == EboKeyKind::Flag) value = value != 0 ? 1 : 0;
    if (kind == EboKeyKind::Int16) {
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

void* fieldOf(const EboKeyRow& row, void* record) {
    return static_cast<char*>(record) + row.offset;
}

bool findAndStore(const EboReading& reading, const EboKeyRow& row, void* record) {
    switch (row.kind) {
        case EboKeyKind::Int32:
        case EboKeyKind::Int16:
        case EboKeyKind::Flag: {
            int value = 0;
            if (!reading.keys.findInt32(row.key, &value)) return false;
            storeInt(row.kind, value, fieldOf(row, record));
            return true;
        }
        case EboKeyKind::Float: {
            float value = 0.0F;
            if (!reading.keys.findFloat(row.key, &value)) return false;
            *static_cast<float*>(fieldOf(row, record)) = value;
            return true;
        }
        default: {
            const char* text = KA_NULL;
            if (!reading.keys.findCString(row.key, &text)) return false;
            eboStoreText(reading.section, row, text, record);
            return true;
        }
    }
}

bool readKey(const EboReading& reading, const EboKeyRow& row, void* record) {
    const EboSection& section = reading.section;
    if (!findAndStore(reading, row, record) && row.missing != KA_NULL) {
        reportMissing(section, row);
        return false;
    }
    if (section.review != KA_NULL) section.review(section, row, record);
    return true;
}

// The bit that an enabled section sets under this root.
int32_t bitUnder(const EboSection& section, const char* root) {
    if (section.playbackBit == 0 || util_strcasecmp(root, "ebo_ao_configs") != 0) return section.bit;
    return section.playbackBit;
}

}  // namespace

EboReading::EboReading(const EboSection& section_, void* parser, const char* root) : section(section_) {
    static_cast<KAJsonParser*>(parser)->getOptions(root, section.name, &keys);
}

EboStatus eboReadStatus(const EboReading& reading, int32_t bit, int* model_en) {
    const EboSection& section = reading.section;
    const EboKeyRow& row = section.rows[0];
    const char* status = KA_NULL;
    if (!reading.keys.findCString(row.key, &status)) {
        if (row.missing != KA_NULL) reportMissing(section, row);
        return EboStatus::Missing;
    }
    if (util_strcasecmp(status, "enable") == 0) {
        *model_en |= bit;
        return EboStatus::Enabled;
    }
    if (section.notEnabled != KA_NULL)
        eboLogLine(section.notEnabled, section.function, static_cast<int>(section.line));
    return EboStatus::Disabled;
}

bool eboReadKeys(const EboReading& reading, void* record) {
    const EboKeyRow* const end = reading.section.rows + reading.section.rowCount;
    for (const EboKeyRow* row = reading.section.rows + 1; row < end; ++row) {
        if (!readKey(reading, *row, record)) return false;
    }
    return true;
}

void eboStoreText(const EboSection& section, const EboKeyRow& row, const char* text, void* record) {
    void* const field = fieldOf(row, record);
    switch (row.kind) {
        case EboKeyKind::FloatRow:
            return storeFloats(text, row.count, static_cast<float*>(field));
        case EboKeyKind::IntRow:
            return storePair(text, static_cast<int16_t*>(field));
        case EboKeyKind::Word:
            if (text[0] != '\0') *static_cast<char**>(field) = strdup(text);
            return;
        default:
            return section.take(section, row, text, record);
    }
}

void* eboMakeBlock(size_t size, const char* assertion, const char* function, int line) {
    void* block = ka_mem_malloc(size, function);
    if (block == KA_NULL) eboAssertFailed(assertion, function, line);
    ka_memset(block, 0, size);
    return block;
}

void* eboMakeRecord(const EboSection& section) {
    return eboMakeBlock(section.recordSize, section.assertion, section.function,
                        static_cast<int>(section.line));
}

void* eboReadSection(void* parser, const char* root, int* model_en, const EboSection& section) {
    if (parser == KA_NULL || root == KA_NULL || model_en == KA_NULL) return KA_NULL;
    const int32_t bit = bitUnder(section, root);
    const EboReading reading(section, parser, root);
    void* record = eboMakeRecord(section);
    if (eboReadStatus(reading, bit, model_en) == EboStatus::Missing || !eboReadKeys(reading, record)) {
        std::free(record);  // on purpose not ka_mem_safe_free; its bit stays set
        return KA_NULL;
    }
    return record;
}

int eboReadSwitch(void* parser, const char* root, int* model_en, const EboSection& section, void* keys) {
    if (parser == KA_NULL || root == KA_NULL || model_en == KA_NULL) return -1;
    const EboReading reading(section, parser, root);
    if (eboReadStatus(reading, section.bit, model_en) == EboStatus::Missing) return -1;
    return eboReadKeys(reading, keys) ? 0 : -1;
}
