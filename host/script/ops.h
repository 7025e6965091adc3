// The host interface as a table: each operation of IZelvorComponentV4 by its
// kind (get, put, call) and name, with its parameters' names, types and
// directions, and its result type. One generic caller per entry converts the
// script's arguments to the parameter types, makes the call and writes the
// in/out values back.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zelvor/izelvor.h"

namespace zvhost {

enum class OpKind { Get, Put, Call };
enum class ParamType { Long, String, Variant };

struct ParamSpec {
  std::string name;
  ParamType type;
  bool inOut;
};

struct Operation {
  OpKind kind;
  std::string name;
  std::vector<ParamSpec> params; // the arguments a script gives, in order
  std::optional<ParamType> result;
  // args: one Variant per parameter, already of its type (I4, BSTR, as given);
  // in/out values are written back into them, also after a failure.
  std::function<zv::Status(zv::IZelvorComponentV4&, std::vector<zv::Variant>& args,
                           zv::Variant& result)>
      invoke;
};

const std::vector<Operation>& hostOperations();
const Operation* findOperation(OpKind kind, std::string_view name);

// The parameter names of a method of the component's public interface, for
// reporting in/out values; empty when the method isn't known here.
std::vector<std::string> publicMethodParams(std::string_view name);

} // namespace zvhost
