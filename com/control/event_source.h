// The control's source of events and the enumeration of a container's
// connection points. Sinks may connect to the source; none is ever called,
// since the event interface has no members.
#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <vector>

namespace zvcom {

// A part of its control: references to it are the control's, so that a point
// a container keeps keeps the control.
class EventSource final : public IConnectionPoint {
public:
  explicit EventSource(IConnectionPointContainer& owner) : owner_(owner) {}
  ~EventSource() { disconnect(); }
  EventSource(const EventSource&) = delete;
  EventSource& operator=(const EventSource&) = delete;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** c) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** e) override;
  // Disconnects what is still connected, when the control goes.
  void disconnect();

private:
  IConnectionPointContainer& owner_;
  std::vector<IUnknown*> sinks_;
};

// A new enumerator over count points, which keeps them and their owner alive.
HRESULT enumeratePoints(IUnknown* owner, IConnectionPoint* const* points, size_t count,
                        IEnumConnectionPoints** out);

} // namespace zvcom
