#include <ka/json_table.h>

#include <algorithm>
#include <map>
#include <string_view>

#include "model/places.h"
#include "model/values.h"
#include "report/export.h"
#include "report/json_writer.h"
#include "text/words.h"

namespace {

struct Member {
    KaJsonItem item;
    std::vector<Member> members;  // of a root or section that is an object

    std::string name() const { return {item.name, item.name_length}; }
    bool isNote() const { return name().rfind('_', 0) == 0 || name().rfind("//", 0) == 0; }
};
using Members = std::vector<Member>;

Members membersOf(const KAJsonParser& document) {
    Members roots;
    KAJsonTable table(document);
    for (KaJsonItem item = {}; table.next(&item);) {
        Members* list = &roots;
        for (uint32_t level = 1; level < item.level; ++level) list = &list->back().members;
        list->push_back({item, {}});
    }
    return roots;
}

size_t endOfString(std::string_view text, size_t at) {
    for (++at; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] == '\\') ++at;
    }
    return at + 1;
}

// The value that begins at `at` of a JSON text, on one line.
std::string onOneLine(std::string_view text, size_t at) {
    std::string line;
    for (size_t depth = 0; at < text.size();) {
        const char c = text[at];
        if (depth == 0 && !line.empty() && std::string_view(",]} \t\r\n").find(c) != std::string_view::npos)
            break;
        const size_t end = c == '"' ? endOfString(text, at) : at + 1;
        if (std::string_view(" \t\r\n").find(c) == std::string_view::npos) line += text.substr(at, end - at);
        if (c == ',' || c == ':') line += ' ';
        if (c == '{' || c == '[') ++depth;
        if ((c == '}' || c == ']') && --depth == 0) break;
        at = end;
    }
    return line;
}

class FileExporter {
public:
    FileExporter(const Load& load, Part part, const std::string& file)
        : load_(load), part_(part), file_(file) {}

    FileExport run() {
        Members roots = membersOf(*load_.document);
        if (part_ != nullptr) {
            const auto isOther = [this](const Member& root) { return root.name() != part_->root; };
            roots.erase(std::remove_if(roots.begin(), roots.end(), isOther), roots.end());
        }
        json_.beginObject();
        writeMembers(roots, rootNames(),
                     [this](const std::string& name, const Member* root) { writeRoot(name, root); });
        json_.endObject();
        if (!refusal_.empty()) return {"", refusal_};
        return {json_.document(), ""};
    }

private:
    using Names = std::vector<std::string>;

    static Names rootNames() {
        Names names;
        for (const EboLoad* load : rootLoads()) names.emplace_back(load->root);
        return names;
    }

    bool isRead(const SectionPlace& place) const {
        const EboLoad* const load = load_.of(place.root);
        return load != nullptr && std::find(load->sections, load->sections + load->sectionCount,
                                            place.section) != load->sections + load->sectionCount;
    }

    void refuse(const Member& member, const Member& former) {
        if (!refusal_.empty()) return;
        const KaTextPosition here = ka_text_position(load_.text.data(), member.item.name_offset - 1);
        const KaTextPosition there = ka_text_position(load_.text.data(), former.item.name_offset - 1);
        refusal_ = file_ + ":" + std::to_string(here.line) + ":" + std::to_string(here.column) +
                   ": cannot be exported: duplicate " + kindOf(member) + " " + inQuotes(member.name()) +
                   ", also on line " + std::to_string(there.line) + "; only the last one is read";
    }

    static const char* kindOf(const Member& member) {
        return member.item.level == 1 ? "root object" : member.item.level == 2 ? "section" : "key";
    }

    // First those of `names`, in that order, each handed to `write`, with null when it is missing; then the
    // others. The notes before a member go with it.
    template <typename Write>
    void writeMembers(const Members& members, const Names& names, Write write) {
        struct Group {
            std::vector<const Member*> notes;
            const Member* member = nullptr;
        };
        std::map<std::string, Group> known;
        std::vector<const Member*> others;
        std::vector<const Member*> notes;
        for (const Member& member : members) {
            if (member.isNote()) {
                notes.push_back(&member);
                continue;
            }
            if (std::find(names.begin(), names.end(), member.name()) == names.end()) {
                others.insert(others.end(), notes.begin(), notes.end());
                others.push_back(&member);
            } else {
                Group& group = known[member.name()];
                if (group.member != nullptr) refuse(member, *group.member);
                group = {notes, &member};
            }
            notes.clear();
        }
        for (const std::string& name : names) {
            for (const Member* note : known[name].notes) writeMember(*note);
            write(name, known[name].member);
        }
        for (const Member* other : others) writeMember(*other);
        for (const Member* note : notes) writeMember(*note);
    }

    void writeRoot(const std::string& name, const Member* root) {
        if (root == nullptr && (part_ == nullptr || name != part_->root)) return;
        if (root != nullptr && root->item.kind != KaJsonKind::kObject) return writeMember(*root);
        Names names;
        std::map<std::string, const SectionPlace*> places;
        for (const SectionPlace& place : sectionPlaces()) {
            if (place.root != name) continue;
            names.emplace_back(place.section->name);
            places[names.back()] = &place;
        }
        json_.key(name).beginObject();
        writeMembers(root != nullptr ? root->members : Members(), names,
                     [&](const std::string& section, const Member* member) {
                         if (isRead(*places[section])) writeSection(*places[section], member);
                     });
        json_.endObject();
    }

    void writeSection(const SectionPlace& place, const Member* section) {
        const EboKeyRow& status = place.section->rows[0];
        if (section == nullptr && status.ifMissing == EboIfMissing::Fails) return;
        if (section != nullptr && section->item.kind != KaJsonKind::kObject) return writeMember(*section);
        Names names = {status.key};
        std::map<std::string, const EboKeyRow*> rows = {{status.key, &status}};
        for (const EboKeyRow* row : keysOf(*place.section)) {
            names.emplace_back(row->key);
            rows[row->key] = row;
        }
        json_.key(place.section->name).beginObject();
        writeMembers(section != nullptr ? section->members : Members(), names,
                     [&](const std::string& key, const Member* member) {
                         if (member != nullptr) {
                             writeMember(*member);
                         } else {
                             writeMissing(place, *rows[key]);
                         }
                     });
        json_.endObject();
    }

    // A key that the file may lack has a value all the same, if the section is read at all.
    void writeMissing(const SectionPlace& place, const EboKeyRow& row) {
        if (row.ifMissing == EboIfMissing::Fails || row.kind == EboKeyKind::ChannelMap) return;
        if (row.kind == EboKeyKind::Status) {
            json_.key(row.key).text("disable");
            return;
        }
        const void* const record = place.recordOf(load_.tuning);
        if (record == nullptr || !(isEnabled(place, load_.tuning) || place.readWhenDisabled())) return;
        const std::string value = valueText(load_.tuning, record, row);
        json_.key(row.key);
        row.kind == EboKeyKind::Word ? json_.text(value) : json_.number(value);
    }

    // As the file states it.
    void writeMember(const Member& member) {
        const KaJsonItem& item = member.item;
        json_.key(member.name());
        if (item.kind == KaJsonKind::kString) {
            json_.text({item.value, item.value_length});
        } else if (item.kind == KaJsonKind::kNumber) {
            json_.number({item.value, item.value_length});
        } else if (item.kind == KaJsonKind::kObject && item.level < 3) {
            json_.beginObject();
            for (const Member& inner : member.members) writeMember(inner);
            json_.endObject();
        } else {
            json_.json(onOneLine(load_.text, item.value_offset));
        }
    }

    const Load& load_;
    const Part part_;
    const std::string& file_;
    JsonWriter json_;
    std::string refusal_;
};

}  // namespace

FileExport exportFile(const Load& load, Part part, const std::string& file) {
    return FileExporter(load, part, file).run();
}
