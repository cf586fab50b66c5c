#include "VemraPlatform/ui/EnvironmentOverrides.hpp"

#include <string_view>
#include <utility>

namespace vemra::ui {

namespace {

class TablesInOrder final : public StringsTable {
 public:
  TablesInOrder(std::shared_ptr<const StringsTable> first,
                std::shared_ptr<const StringsTable> second)
      : first_(std::move(first)), second_(std::move(second)) {}

  std::optional<std::string> lookup(std::string_view key) const override {
    auto translation = first_->lookup(key);
    return translation ? translation : second_->lookup(key);
  }

 private:
  std::shared_ptr<const StringsTable> first_;
  std::shared_ptr<const StringsTable> second_;
};

template <class Value>
void replace(Value& value, const std::optional<Value>& own) {
  if (own) value = *own;
}

}  // namespace

Environment EnvironmentOverrides::over(Environment environment) const {
  replace(environment.locale, locale);
  replace(environment.timeZone, timeZone);
  replace(environment.textScale, textScale);
  replace(environment.colorScheme, colorScheme);
  replace(environment.layoutDirection, layoutDirection);
  environment.strings = inOrder(strings, std::move(environment.strings));
  return environment;
}

std::shared_ptr<const StringsTable> inOrder(std::shared_ptr<const StringsTable> first,
                                            std::shared_ptr<const StringsTable> second) {
  if (!first) return second;
  if (!second) return first;
  return std::make_shared<TablesInOrder>(std::move(first), std::move(second));
}

}  // namespace vemra::ui
