#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "lib/JobRules.h"
#include "lib/ProfileClasses.h"

namespace {

using nlohmann::json;

json jobSchema() {
  std::ifstream file(KR_SOURCE_DIR "/data/schemas/job.schema.json");
  return json::parse(file);
}

// A schema with its reference to a definition followed.
json resolved(const json& root, const json& schema) {
  if (!schema.contains("$ref")) return schema;
  const std::string reference = schema["$ref"];
  return root.at(json::json_pointer(reference.substr(1)));
}

std::set<std::string> keysOf(const json& object) {
  std::set<std::string> keys;
  for (const auto& [key, value] : object.items()) keys.insert(key);
  return keys;
}

// Fails where the rule of an object and its schema don't name the same keys, the same required ones and the same words.
void compare(const json& root, const json& given, const kr::ObjectRule& rule) {
  SCOPED_TRACE(std::string(rule.what));
  const json schema = resolved(root, given);
  if (rule.otherKeys == nullptr) {
    std::set<std::string> keys;
    for (const kr::KeyRule& key : rule.keys) keys.insert(std::string(key.key));
    EXPECT_EQ(keys, keysOf(schema.at("properties")));
    EXPECT_EQ(schema.at("additionalProperties"), false);
  }
  std::set<std::string> required;
  for (const kr::KeyRule& key : rule.keys) {
    if (key.required) required.insert(std::string(key.key));
  }
  EXPECT_EQ(required, schema.value("required", json::array()).get<std::set<std::string>>());
  for (const kr::KeyRule& key : rule.keys) {
    if (!schema.contains("properties") || !schema["properties"].contains(std::string(key.key))) continue;
    const json value = resolved(root, schema["properties"][std::string(key.key)]);
    if (key.value.form == kr::Form::kWord) {
      std::set<std::string> words;
      for (const auto word : key.value.words) {
        if (!word.empty()) words.insert(std::string(word));
      }
      EXPECT_EQ(words, value.at("enum").get<std::set<std::string>>()) << key.key;
    }
    if (key.value.object != nullptr) compare(root, value, *key.value.object);
    if (key.value.element == nullptr || key.value.element->object == nullptr) continue;
    const char* inner = key.value.form == kr::Form::kMap ? "additionalProperties" : "items";
    compare(root, value.at(inner), *key.value.element->object);
  }
}

TEST(JobSchema, NamesTheKeysThatTheReaderTakes) {
  compare(jobSchema(), jobSchema(), kr::jobRule());
}

TEST(JobSchema, NamesEveryClassOfProfileWithItsParameters) {
  const json schema = jobSchema();
  for (const kr::ProfileClass& row : kr::profileClasses()) {
    SCOPED_TRACE(std::string(row.name));
    std::set<std::string> keys{"class"};
    for (const kr::ProfileParameter& parameter : row.parameters) keys.insert(std::string(parameter.key));
    if (row.takesLine) keys.insert({"line", "origin"});
    EXPECT_EQ(keys, keysOf(schema.at("$defs").at(std::string(row.name)).at("properties")));
  }
  // And the profile by designation.
  EXPECT_EQ(schema.at("$defs").at("profile").at("oneOf").size(), kr::profileClasses().size() + 1);
}

}  // namespace
