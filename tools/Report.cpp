#include "Report.h"

namespace tool {

Report& Report::add(QLatin1StringView key, QString const& label, Value value)
{
    entries.push_back({key, label, std::move(value)});
    return *this;
}

void Report::add(QLatin1StringView key, QString const& label, Table table)
{
    entries.push_back({key, label, std::move(table)});
}

Report& Report::section(QLatin1StringView key, QString const& label)
{
    entries.push_back({key, label, Section{{}, false}});
    std::list<Item>& items = std::get<Section>(entries.back().content).items;
    items.push_back({label, {}});
    return items.back().report;
}

Report& Report::addItem(QLatin1StringView key, QString const& label)
{
    Entry* entry = find(key);
    if (entry == nullptr) {
        entries.push_back({key, {}, Section{{}, true}});
        entry = &entries.back();
    }
    std::list<Item>& items = std::get<Section>(entry->content).items;
    items.push_back({label, {}});
    return items.back().report;
}

void Report::addList(QLatin1StringView key)
{
    entries.push_back({key, {}, Section{{}, true}});
}

Report::Entry* Report::find(QLatin1StringView key)
{
    for (Entry& entry : entries) {
        if (entry.key == key)
            return &entry;
    }
    return nullptr;
}

} // namespace tool
