// A selected object's public interface reached through its IDispatch by
// member name, as the property page reads and writes it. A failed call raises
// the run-time error its HRESULT carries.
#pragma once

#include <oaidl.h>

#include "platform/dispatch.h"

namespace zvcom {

class RemoteDispatch final : public zv::Dispatch {
public:
  explicit RemoteDispatch(IDispatch* object); // keeps a reference
  ~RemoteDispatch() override;
  RemoteDispatch(const RemoteDispatch&) = delete;
  RemoteDispatch& operator=(const RemoteDispatch&) = delete;

  zv::Variant getProperty(const std::string& name) override;
  void putProperty(const std::string& name, const zv::Variant& value) override;
  zv::Variant callMethod(const std::string& name, std::vector<zv::Variant>& args) override;

private:
  DISPID idOf(const std::string& name);
  zv::Variant invoke(const std::string& name, WORD flags, DISPPARAMS& params);
  IDispatch* object_;
};

} // namespace zvcom
