#include "database/TemporaryTables.h"

#include <utility>

namespace quellbrook {

std::string TemporaryTables::NameIn(const std::string& statement) {
    const size_t begin = statement.find('"');
    const size_t end = begin == std::string::npos ? begin : statement.find('"', begin + 1);
    return end == std::string::npos ? std::string() : statement.substr(begin, end + 1 - begin);
}

bool TemporaryTables::Take(const std::string& creation) {
    const auto found = m_aside.find(NameIn(creation));
    if (found == m_aside.end() || found->second.creation != creation) return false;
    m_inUse.insert(m_aside.extract(found));
    return true;
}

void TemporaryTables::Created(const std::string& creation) {
    m_inUse.insert_or_assign(NameIn(creation), Table{creation, true});
}

bool TemporaryTables::SetAside(const std::string& name) {
    const auto found = m_inUse.find(name);
    if (found == m_inUse.end()) return false;
    m_aside.insert(m_inUse.extract(found));
    return true;
}

void TemporaryTables::Forget(const std::string& name) {
    m_inUse.erase(name);
    m_aside.erase(name);
}

void TemporaryTables::Commit() {
    for (auto* tables : {&m_inUse, &m_aside})
        for (auto& [name, table] : *tables) table.isNew = false;
}

void TemporaryTables::Rollback() {
    m_aside.merge(m_inUse);
    m_inUse.clear();
    std::erase_if(m_aside, [](const auto& entry) { return entry.second.isNew; });
}

void TemporaryTables::Clear() {
    m_inUse.clear();
    m_aside.clear();
}

}  // namespace quellbrook
