#include "event_source.h"

#include <new>

#include "avr_pwm.h"

namespace zvcom {

HRESULT EventSource::QueryInterface(REFIID iid, void** out) {
  if (!out)
    return E_POINTER;
  *out = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IConnectionPoint)
             ? static_cast<IConnectionPoint*>(this)
             : nullptr;
  if (!*out)
    return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

HRESULT EventSource::GetConnectionInterface(IID* iid) {
  if (!iid)
    return E_POINTER;
  *iid = DIID___PWM;
  return S_OK;
}

HRESULT EventSource::GetConnectionPointContainer(IConnectionPointContainer** c) {
  if (!c)
    return E_POINTER;
  *c = &owner_;
  owner_.AddRef();
  return S_OK;
}

HRESULT EventSource::Advise(IUnknown* sink, DWORD* cookie) {
  if (!sink || !cookie)
    return E_POINTER;
  sink->AddRef();
  sinks_.push_back(sink);
  *cookie = static_cast<DWORD>(sinks_.size());
  return S_OK;
}

HRESULT EventSource::Unadvise(DWORD cookie) {
  if (cookie == 0 || cookie > sinks_.size() || !sinks_[cookie - 1])
    return CONNECT_E_NOCONNECTION;
  sinks_[cookie - 1]->Release();
  sinks_[cookie - 1] = nullptr;
  return S_OK;
}

HRESULT EventSource::EnumConnections(IEnumConnections** e) {
  if (e)
    *e = nullptr;
  return E_NOTIMPL;
}

void EventSource::disconnect() {
  for (IUnknown*& sink : sinks_)
    if (sink) {
      sink->Release();
      sink = nullptr;
    }
}

namespace {

class PointEnumerator final : public IEnumConnectionPoints {
public:
  PointEnumerator(IUnknown* owner, const std::vector<IConnectionPoint*>& points, size_t next)
      : owner_(owner), points_(points), next_(next) {
    owner_->AddRef();
    for (IConnectionPoint* point : points_)
      point->AddRef();
  }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (!out)
      return E_POINTER;
    *out = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IEnumConnectionPoints)
               ? static_cast<IEnumConnectionPoints*>(this)
               : nullptr;
    if (!*out)
      return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (!left)
      delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE Next(ULONG count, IConnectionPoint** out, ULONG* fetched) override {
    if (!out || (count != 1 && !fetched))
      return E_POINTER;
    ULONG given = 0;
    for (; given < count && next_ < points_.size(); ++given, ++next_) {
      out[given] = points_[next_];
      out[given]->AddRef();
    }
    if (fetched)
      *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const size_t left = points_.size() - next_;
    next_ += count < left ? count : left;
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** out) override {
    return make(owner_, points_, next_, out);
  }
  static HRESULT make(IUnknown* owner, const std::vector<IConnectionPoint*>& points, size_t next,
                      IEnumConnectionPoints** out) {
    if (!out)
      return E_POINTER;
    *out = nullptr;
    try {
      *out = new PointEnumerator(owner, points, next);
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    }
    return S_OK;
  }

private:
  ~PointEnumerator() {
    for (IConnectionPoint* point : points_)
      point->Release();
    owner_->Release();
  }
  IUnknown* owner_;
  std::vector<IConnectionPoint*> points_;
  size_t next_;
  ULONG references_ = 1;
};

} // namespace

HRESULT enumeratePoints(IUnknown* owner, IConnectionPoint* const* points, size_t count,
                        IEnumConnectionPoints** out) {
  if (!out)
    return E_POINTER;
  *out = nullptr;
  try {
    return PointEnumerator::make(owner, {points, points + count}, 0, out);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

} // namespace zvcom
