// The runner's backend for the Linux plug-in: handles over the C++ objects
// that the plug-in's entry points make.
#pragma once

#include "host/script/backend.h"
#include "loader.h"

namespace zvhost {

class PluginComponent : public ComponentHandle {
public:
  explicit PluginComponent(Plugin::ComponentPtr object) : object_(std::move(object)) {}
  zv::ComponentObject& object() { return *object_; }

  zv::Status initProperties() override;
  zv::Status readProperties(zv::PropertyBag& bag) override;
  zv::Status writeProperties(zv::PropertyBag& bag) override;
  zv::Status paint() override;
  zv::Status resize() override;
  zv::Status hostOperation(const Operation& op, std::vector<zv::Variant>& args,
                           zv::Variant& result) override;
  zv::Status publicGet(const std::string& name, zv::Variant& result) override;
  zv::Status publicPut(const std::string& name, const zv::Variant& value) override;
  zv::Status publicCall(const std::string& name, std::vector<zv::Variant>& args,
                        zv::Variant& result) override;
  zv::Inspected fields() override;
  PanelView panel() override;
  std::optional<CanvasView> canvas(int index,
                                   const std::optional<std::pair<float, float>>& size) override;
  zv::ComponentObject* inProcess() override { return object_.get(); }

private:
  Plugin::ComponentPtr object_;
};

class PluginBackend : public Backend {
public:
  // plugin must outlive the backend and what it makes.
  explicit PluginBackend(const Plugin& plugin) : plugin_(plugin) {}
  std::unique_ptr<ComponentHandle> createComponent(const std::string& folder,
                                                   const std::string& baseName, zv::Status& status,
                                                   zv::MessageBoxService* boxes) override;
  std::unique_ptr<PageHandle> createPage(zv::Status& status, zv::MessageBoxService* boxes) override;
  bool render(ComponentHandle& component, const std::string& path, double scale,
              std::string& error) override;

private:
  const Plugin& plugin_;
};

} // namespace zvhost
