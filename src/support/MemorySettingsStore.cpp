#include "support/MemorySettingsStore.h"

#include <algorithm>
#include <cctype>

namespace corvane {
namespace {

std::string LowerName(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return name;
}

} // namespace

std::string MemorySettingsStore::NormalKey(const std::string& key) {
    std::string normal;
    normal.reserve(key.size());
    for (char c : key) {
        normal.push_back(c == '/' ? '\\' : c);
    }
    while (!normal.empty() && normal.back() == '\\') {
        normal.pop_back();
    }
    return LowerName(normal);
}

bool MemorySettingsStore::KeyExists(const std::string& key) {
    return keys_.count(NormalKey(key)) > 0;
}

void MemorySettingsStore::CreateKey(const std::string& key) {
    if (!readOnly_) {
        keys_[NormalKey(key)];
    }
}

std::string MemorySettingsStore::GetValue(const std::string& key, const std::string& name) {
    auto k = keys_.find(NormalKey(key));
    if (k == keys_.end()) {
        return {};
    }
    const std::string lower = LowerName(name);
    auto v = k->second.find(lower);
    return v == k->second.end() ? std::string() : v->second;
}

bool MemorySettingsStore::SetValue(const std::string& key, const std::string& name,
                                   const std::string& value) {
    if (readOnly_) {
        return false;
    }
    const std::string lower = LowerName(name);
    keys_[NormalKey(key)][lower] = value;
    return true;
}

void MemorySettingsStore::DeleteValue(const std::string& key, const std::string& name) {
    auto k = keys_.find(NormalKey(key));
    if (k == keys_.end() || readOnly_) {
        return;
    }
    const std::string lower = LowerName(name);
    k->second.erase(lower);
}

} // namespace corvane
