// The runner's views read from the Variant trees that a component's
// diagnostic side hands out (com/diagnostic_trees.h). A tree of another shape
// raises a type mismatch.
#pragma once

#include "host/script/backend.h"

namespace zvhost {

zv::Inspected fieldsFrom(const zv::Variant& tree);
PanelView panelFrom(const zv::Variant& tree);
// nullopt for an empty tree (no such canvas).
std::optional<CanvasView> canvasFrom(const zv::Variant& tree);
PageView pageFrom(const zv::Variant& tree);
ControlKind controlKindFrom(int number);

} // namespace zvhost
