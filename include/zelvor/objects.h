// What the plug-in hands a host: the component object and its property page.
// Both are created and destroyed through the C entry points of plugin.h.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/canvas.h"
#include "platform/controls/pagesite.h"
#include "platform/controls/widgets.h"
#include "platform/dispatch.h"
#include "platform/field_tree.h"
#include "platform/propbag.h"
#include "izelvor.h"

namespace zv {

// One component on the host's flowchart: the host interface, the calls of the
// control's container, its public interface by name, and its panel.
class ComponentObject : public IZelvorComponentV4 {
public:
  // The container's calls.
  virtual Status InitProperties() = 0;
  virtual Status ReadProperties(PropertyBag& bag) = 0;
  virtual Status WriteProperties(PropertyBag& bag) = 0;
  virtual Status Paint() = 0;  // UserControl_Paint
  virtual Status Resize() = 0; // UserControl_Resize

  // The public interface (_PWM) by member name; members raise RuntimeError.
  virtual Dispatch& publicInterface() = 0;

  // The panel: its surface and its controls, in a fixed order
  // (Pic_Graph(0), Pic_Graph(1), lblInfo(0), lblInfo(1), Line1, Line2).
  virtual UserControlSurface& panelSurface() = 0;
  virtual std::vector<Control*> panelControls() = 0;

  // The object's fields by their names, for inspection.
  virtual Inspected inspect() const = 0;
};

// The property page. Its controls raise their notifications as the user edits
// them; RuntimeErrors raised inside a notification reach the caller.
class PageObject {
public:
  virtual ~PageObject() = default;
  virtual PropertyPageSite& site() = 0;
  virtual Status PropertyPage_SelectionChanged() = 0;
  virtual Status PropertyPage_ApplyChanges() = 0;
  // The page's size in twips and its title.
  virtual float pageWidth() const = 0;
  virtual float pageHeight() const = 0;
  virtual std::string caption() const = 0;
  // The controls in their order of creation; nullptr for an unknown name.
  virtual std::vector<Control*> controls() = 0;
  virtual Control* control(const std::string& name) = 0;
  // The page's fields by their names.
  virtual Inspected inspect() const = 0;
};

} // namespace zv
