// The runner's backend for the Windows COM server, driving it only as a COM
// host does: objects made by CoCreateInstance from the registered ProgID, the
// host interface late-bound by name through the IDispatch of its
// IZelvorComponentV4 pointer, the public interface through the object's
// default IDispatch, and the container's calls, inspection and the page
// through the library's diagnostic interface. The host's site offers the
// library's message-box service; each box goes to the process's current
// zv::messageBoxService(). COM must be initialised on the calling thread.
#pragma once

#include <memory>

#include "host/script/backend.h"

namespace zvhost {

class ComSite;

class ComBackend : public Backend {
public:
  ComBackend();
  ~ComBackend() override;
  std::unique_ptr<ComponentHandle> createComponent(const std::string& folder,
                                                   const std::string& baseName,
                                                   zv::Status& status) override;
  std::unique_ptr<PageHandle> createPage(zv::Status& status) override;
  bool render(ComponentHandle& component, const std::string& path, double scale,
              std::string& error) override;

private:
  ComSite* site_;
  // Pages are made by an object of the library; one kept for that alone.
  std::unique_ptr<ComponentHandle> pageMaker_;
};

} // namespace zvhost
