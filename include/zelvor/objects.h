/// @file
/// What the plug-in hands a host: the component object and its property page.
/// Both are created and destroyed through the C entry points of plugin.h; the
/// host owns what it created until it destroys it.
#pragma once

#include <string>
#include <vector>

#include "izelvor.h"
#include "platform/controls/canvas.h"
#include "platform/controls/pagesite.h"
#include "platform/controls/widgets.h"
#include "platform/dispatch.h"
#include "platform/field_tree.h"
#include "platform/msgbox.h"
#include "platform/propbag.h"

namespace zv {

/// One component on the host's flowchart: the host interface, the calls of
/// the control's container, its public interface by name, and its panel.
/// The container's calls answer a Status as the host interface does.
class ComponentObject : public IZelvorComponentV4 {
public:
  /// A new component's first settings; runs instead of ReadProperties.
  virtual Status InitProperties() = 0;
  /// A saved component's settings, read from bag; runs instead of
  /// InitProperties, then paints the panel. Fails at a value that doesn't
  /// convert, with the keys before it taken.
  virtual Status ReadProperties(const PropertyBag& bag) = 0;
  /// Saves the component's settings into bag (in/out), always the same keys
  /// in the same order.
  virtual Status WriteProperties(PropertyBag& bag) = 0;
  /// Paints the panel (the container's paint event).
  virtual Status Paint() = 0;
  /// Lays the panel out (the container's resize event).
  virtual Status Resize() = 0;

  /// Where the component's message boxes go from now on: service (not
  /// owned; it must outlive its use) or, for nullptr, the platform's default
  /// service. The boxes of the start-up come before the object exists, and go
  /// to the default service.
  virtual void setMessageBoxes(MessageBoxService* service) = 0;

  /// The public interface by member name (the properties the property page
  /// reads and writes, among them); its members throw RuntimeError. Owned by
  /// the component.
  virtual Dispatch& publicInterface() = 0;

  /// The panel's surface, owned by the component.
  virtual UserControlSurface& panelSurface() = 0;
  /// The panel's controls, owned by the component, in a fixed order:
  /// Pic_Graph(0), Pic_Graph(1), lblInfo(0), lblInfo(1), Line1, Line2.
  virtual std::vector<Control*> panelControls() = 0;

  /// A copy of the object's fields by their names, for inspection.
  virtual Inspected inspect() const = 0;
};

/// The property page. It works on a copy of the settings of the first
/// selected component, which it reads on PropertyPage_SelectionChanged and
/// writes on PropertyPage_ApplyChanges. Its controls raise their
/// notifications as the user edits them; a RuntimeError raised inside a
/// notification reaches the caller of the control's setter.
class PageObject {
public:
  virtual ~PageObject() = default;
  /// The page's site: the selected objects (not owned) and the changed flag.
  virtual PropertyPageSite& site() = 0;
  /// Where the page's message boxes go: service (not owned) or, for
  /// nullptr, the platform's default service.
  virtual void setMessageBoxes(MessageBoxService* service) = 0;
  /// Reads the selection's properties into the page's fields and controls.
  virtual Status PropertyPage_SelectionChanged() = 0;
  /// Writes the page's settings to the selection's properties; a failure
  /// leaves the properties written before it.
  virtual Status PropertyPage_ApplyChanges() = 0;
  /// The page's width in twips.
  virtual float pageWidth() const = 0;
  /// The page's height in twips.
  virtual float pageHeight() const = 0;
  /// The page's title.
  virtual std::string caption() const = 0;
  /// The controls in their order of creation, owned by the page.
  virtual std::vector<Control*> controls() = 0;
  /// The control of that name; nullptr for an unknown name.
  virtual Control* control(const std::string& name) = 0;
  /// A copy of the page's fields by their names, for inspection.
  virtual Inspected inspect() const = 0;
};

} // namespace zv
