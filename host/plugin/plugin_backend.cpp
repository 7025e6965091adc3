#include "plugin_backend.h"

#include "com/diagnostic_trees.h"
#include "diagnostic_views.h"
#include "host/pictures/render.h"
#include "platform/funnel.h"

namespace zvhost {

namespace {

class PluginPage : public PageHandle {
public:
  explicit PluginPage(Plugin::PagePtr page) : page_(std::move(page)) {}

  zv::Status select(const std::vector<ComponentHandle*>& components) override {
    std::vector<zv::Dispatch*> selected;
    for (ComponentHandle* c : components)
      selected.push_back(&static_cast<PluginComponent*>(c)->object().publicInterface());
    page_->site().SelectedControls = selected;
    return page_->PropertyPage_SelectionChanged();
  }

  zv::Status apply() override {
    zv::Status status = page_->PropertyPage_ApplyChanges();
    if (status.ok())
      page_->site().setChanged(false);
    return status;
  }

  ControlKind kind(const std::string& name) override {
    return controlKindFrom(static_cast<int>(zvcom::editableKind(page_->control(name))));
  }

  std::string text(const std::string& name) override { return zvcom::textOf(page_->control(name)); }

  void setText(const std::string& name, const std::string& text) override {
    zvcom::setTextOf(page_->control(name), text);
  }

  void setValue(const std::string& name, int value) override {
    zvcom::setEditableValue(page_->control(name), value);
  }

  void arrow(const std::string& name, bool up) override {
    zvcom::arrowOn(page_->control(name), up);
  }

  PageView state() override { return pageFrom(zvcom::pageTree(*page_)); }

private:
  Plugin::PagePtr page_;
};

} // namespace

zv::Status PluginComponent::initProperties() {
  return object_->InitProperties();
}

zv::Status PluginComponent::readProperties(zv::PropertyBag& bag) {
  return object_->ReadProperties(bag);
}

zv::Status PluginComponent::writeProperties(zv::PropertyBag& bag) {
  return object_->WriteProperties(bag);
}

zv::Status PluginComponent::paint() {
  return object_->Paint();
}

zv::Status PluginComponent::resize() {
  return object_->Resize();
}

zv::Status PluginComponent::hostOperation(const Operation& op, std::vector<zv::Variant>& args,
                                          zv::Variant& result) {
  return op.invoke(*object_, args, result);
}

zv::Status PluginComponent::publicGet(const std::string& name, zv::Variant& result) {
  return zv::guard([&] { result = object_->publicInterface().getProperty(name); });
}

zv::Status PluginComponent::publicPut(const std::string& name, const zv::Variant& value) {
  return zv::guard([&] { object_->publicInterface().putProperty(name, value); });
}

zv::Status PluginComponent::publicCall(const std::string& name, std::vector<zv::Variant>& args,
                                       zv::Variant& result) {
  return zv::guard([&] { result = object_->publicInterface().callMethod(name, args); });
}

zv::Inspected PluginComponent::fields() {
  return fieldsFrom(zvcom::fieldsTree(object_->inspect()));
}

PanelView PluginComponent::panel() {
  return panelFrom(zvcom::panelTree(*object_));
}

std::optional<CanvasView>
PluginComponent::canvas(int index, const std::optional<std::pair<float, float>>& size) {
  zv::Canvas* canvas = zvcom::canvasOf(*object_, index);
  if (!canvas)
    return std::nullopt;
  if (size)
    zvcom::sizeCanvas(*canvas, size->first, size->second);
  return canvasFrom(zvcom::canvasTree(*canvas));
}

std::unique_ptr<ComponentHandle> PluginBackend::createComponent(const std::string& folder,
                                                                const std::string& baseName,
                                                                zv::Status& status,
                                                                zv::MessageBoxService* boxes) {
  Plugin::ComponentPtr made = plugin_.createComponent(folder, baseName, status, boxes);
  if (!made)
    return nullptr;
  return std::make_unique<PluginComponent>(std::move(made));
}

std::unique_ptr<PageHandle> PluginBackend::createPage(zv::Status& status,
                                                      zv::MessageBoxService* boxes) {
  Plugin::PagePtr made = plugin_.createPage(status, boxes);
  if (!made)
    return nullptr;
  return std::make_unique<PluginPage>(std::move(made));
}

bool PluginBackend::render(ComponentHandle& component, const std::string& path, double scale,
                           std::string& error) {
  return renderPanel(static_cast<PluginComponent&>(component).object(), path, error, scale);
}

} // namespace zvhost
