// The runner's backend for the Windows COM server, driving it only as a COM
// host does: objects made by CoCreateInstance from the registered ProgID, the
// host interface late-bound by name through the IDispatch of its
// IZelvorComponentV4 pointer, the public interface through the object's
// default IDispatch, and the container's calls, inspection and the page
// through the library's diagnostic interface. Each object's client site
// offers the library's message-box service, through which its boxes go to the
// service it was made with. COM must be initialised on the calling thread.
#pragma once

#include <memory>

#include "host/script/backend.h"

namespace zvhost {

class ComBackend : public Backend {
public:
  ~ComBackend() override;
  std::unique_ptr<ComponentHandle> createComponent(const std::string& folder,
                                                   const std::string& baseName, zv::Status& status,
                                                   zv::MessageBoxService* boxes) override;
  std::unique_ptr<PageHandle> createPage(zv::Status& status, zv::MessageBoxService* boxes) override;
  bool render(ComponentHandle& component, const std::string& path, double scale,
              std::string& error) override;

private:
  // Pages are made by an object of the library; one kept for that alone.
  std::unique_ptr<ComponentHandle> pageMaker_;
};

} // namespace zvhost
