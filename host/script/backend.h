// How the script runner reaches components: a Backend makes components and
// property pages, and the runner drives them only through these handles, so
// the same runner serves the Linux plug-in and a COM server.
//
// A handle's host-interface and public-interface calls answer the call's
// status; their in/out arguments hold what the component wrote, also after a
// failure. Inspection and page edits raise zv::RuntimeError when the
// component fails inside them. Each object shows its message boxes through
// the service it was made with.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ops.h"
#include "platform/controls/canvas.h"
#include "platform/field_tree.h"
#include "platform/msgbox.h"
#include "platform/propbag.h"
#include "zelvor/objects.h"
#include "zelvor/status.h"

namespace zvhost {

// The panel: its size, background style and controls in their fixed order.
struct PanelView {
  struct Item {
    std::string name;
    bool visible = false;
    std::optional<std::string> caption; // labels only
  };
  float width = 0;
  float height = 0;
  int backStyle = 0;
  std::vector<Item> controls;
};

struct CanvasView {
  float scaleWidth = 0;
  float scaleHeight = 0;
  zv::Color foreColor = 0;
  std::vector<zv::DrawOp> ops; // since and including the last clear
};

// One page control: what applies of its kind.
struct ControlView {
  std::string name;
  std::optional<std::string> text, caption;
  std::optional<int> value, min, max, listIndex;
  std::optional<std::vector<std::string>> items;
  bool enabled = false;
};

struct PageView {
  zv::Inspected fields;
  std::vector<ControlView> controls; // in their order of creation
  bool changed = false;
  std::optional<std::string> focus;
};

enum class ControlKind { None, TextBox, ScrollBar, CheckBox, ComboBox, Other };

class ComponentHandle {
public:
  virtual ~ComponentHandle() = default;

  // The container's calls.
  virtual zv::Status initProperties() = 0;
  virtual zv::Status readProperties(zv::PropertyBag& bag) = 0;
  virtual zv::Status writeProperties(zv::PropertyBag& bag) = 0;
  virtual zv::Status paint() = 0;
  virtual zv::Status resize() = 0;

  // One operation of the host interface; args hold one Variant per parameter,
  // already of its type, and take back the in/out values.
  virtual zv::Status hostOperation(const Operation& op, std::vector<zv::Variant>& args,
                                   zv::Variant& result) = 0;

  // The public interface by member name; a method's args are in/out.
  virtual zv::Status publicGet(const std::string& name, zv::Variant& result) = 0;
  virtual zv::Status publicPut(const std::string& name, const zv::Variant& value) = 0;
  virtual zv::Status publicCall(const std::string& name, std::vector<zv::Variant>& args,
                                zv::Variant& result) = 0;

  // Inspection, which calls nothing on the component.
  virtual zv::Inspected fields() = 0;
  virtual PanelView panel() = 0;
  // The canvas Pic_Graph(index), nullopt when the panel has none. With a
  // size, its inner area is first made that size.
  virtual std::optional<CanvasView> canvas(int index,
                                           const std::optional<std::pair<float, float>>& size) = 0;

  // The component object itself when it lives in this process, else nullptr.
  virtual zv::ComponentObject* inProcess() { return nullptr; }
};

// The property page. Edits run the control's notifications nested, as a
// user's edit does.
class PageHandle {
public:
  virtual ~PageHandle() = default;
  // The selection becomes these components in order, then selection-changed runs.
  virtual zv::Status select(const std::vector<ComponentHandle*>& components) = 0;
  // Apply; once applied, the page has nothing left to apply.
  virtual zv::Status apply() = 0;
  virtual ControlKind kind(const std::string& control) = 0;
  virtual std::string text(const std::string& textBox) = 0;
  virtual void setText(const std::string& textBox, const std::string& text) = 0;
  // A scroll bar's or check box's value, or a list's index.
  virtual void setValue(const std::string& control, int value) = 0;
  virtual void arrow(const std::string& scrollBar, bool up) = 0;
  virtual PageView state() = 0;
};

class Backend {
public:
  virtual ~Backend() = default;
  // folder and baseName may be empty (the library's own). Null on failure,
  // with status filled. The object shows its message boxes, its start-up's
  // among them, through boxes (not owned; null: the platform's default).
  virtual std::unique_ptr<ComponentHandle> createComponent(const std::string& folder,
                                                           const std::string& baseName,
                                                           zv::Status& status,
                                                           zv::MessageBoxService* boxes) = 0;
  virtual std::unique_ptr<PageHandle> createPage(zv::Status& status,
                                                 zv::MessageBoxService* boxes) = 0;
  // The panel as a picture (SVG or PNG by the extension), scale times its
  // size; false with error filled when it can't be made.
  virtual bool render(ComponentHandle& component, const std::string& path, double scale,
                      std::string& error) = 0;
};

} // namespace zvhost
