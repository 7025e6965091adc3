// The COM class PWM: one component object behind its default interface _PWM,
// its face IZelvorComponentV4, ISupportErrorInfo, IOleObject, and the OLE
// control's other faces (control/ole_control.h). The component shows its
// message boxes through this object's, and every call ends as an HRESULT
// (see failure.h). Apartment-threaded: one call at a time, no locks.
#pragma once

#include <memory>

#include "avr_pwm.h"
#include "control/ole_control.h"
#include "failure.h"
#include "invoke.h"
#include "site_message_boxes.h"
#include "v4_face.h"
#include "zelvor/objects.h"

namespace zvcom {

class PwmObject final : public Dual<_PWM, IID__PWM>, public ISupportErrorInfo, public IOleObject {
public:
  // Creates an object (the component's start-up runs) and asks it for iid.
  static HRESULT create(REFIID iid, void** out);

  // Runs one operation of the component.
  template <class Body> HRESULT call(REFIID iid, Body&& body) {
    return run(iid, std::forward<Body>(body));
  }
  zv::ComponentObject& component() { return *component_; }
  // The boxes of this object: its site's service, else the system's.
  zv::MessageBoxService& messageBoxes() { return boxes_; }
  // A new component with this code file folder and base name (empty: the
  // library's own) replaces the current one; on failure the current one stays.
  // An object active in place is not restarted (E_UNEXPECTED).
  HRESULT restart(const std::string& folder, const std::string& baseName);

  // IUnknown
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  // ISupportErrorInfo
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;
  // IOleObject (client_site.cpp): the host's services (its message boxes) come
  // through the client site; the rest is the OLE control's work. IObjectWithSite
  // is not offered: Wine's script engine refuses to create an object that has it.
  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override;
  HRESULT STDMETHODCALLTYPE Close(DWORD) override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override;
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override;
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject** data) override;
  HRESULT STDMETHODCALLTYPE DoVerb(LONG, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override;
  HRESULT STDMETHODCALLTYPE Update() override;
  HRESULT STDMETHODCALLTYPE IsUpToDate() override;
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* clsid) override;
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR* type) override;
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD, SIZEL*) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD, SIZEL*) override;
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink*, DWORD* connection) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override;
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** advise) override;
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD, DWORD* status) override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override;

  // _PWM (pwm_public.cpp): each member by its name on the component's public interface.
  HRESULT STDMETHODCALLTYPE get_iVersionMajor(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE put_iVersionMajor(SHORT RHS) override;
  HRESULT STDMETHODCALLTYPE get_iVersionMinor(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE put_iVersionMinor(SHORT RHS) override;
  HRESULT STDMETHODCALLTYPE GetIniKeyValue(BSTR* lpApplicationName, BSTR* lpKeyName,
                                           BSTR* lpDefault, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE GetCodeFromFile(BSTR* lpCodeName, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE Calc_Period_Freq() override;
  HRESULT STDMETHODCALLTYPE get_IZelvorComponentV4_VNodeCount(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_IZelvorComponentV4_VNodeProtocol(LONG lIdx, LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_IZelvorComponentV4_VNodeName(LONG lIdx, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_IZelvorComponentV4_VNodeMsgRead(LONG lIdx, LONG* lSize,
                                                                VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE put_IZelvorComponentV4_VNodeMsgWrite(LONG lIdx, LONG lSize,
                                                                 VARIANT* msg) override;
  HRESULT STDMETHODCALLTYPE get_Pr2(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE put_Pr2(SHORT RHS) override;
  HRESULT STDMETHODCALLTYPE get_Prescaler(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE put_Prescaler(SHORT RHS) override;
  HRESULT STDMETHODCALLTYPE get_PWM_No(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE put_PWM_No(SHORT RHS) override;
  HRESULT STDMETHODCALLTYPE get_ClockSpeed(LONG* result) override;
  HRESULT STDMETHODCALLTYPE put_ClockSpeed(LONG RHS) override;
  HRESULT STDMETHODCALLTYPE get_MaxPwm(LONG* result) override;
  HRESULT STDMETHODCALLTYPE put_MaxPwm(LONG RHS) override;
  HRESULT STDMETHODCALLTYPE get_UseAltPin(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE put_UseAltPin(VARIANT_BOOL RHS) override;
  HRESULT STDMETHODCALLTYPE get_HasAltPin(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE put_HasAltPin(SHORT RHS) override;
  HRESULT STDMETHODCALLTYPE get_Label1(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_Label1(BSTR RHS) override;
  HRESULT STDMETHODCALLTYPE get_Label2(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_Label2(BSTR RHS) override;
  HRESULT STDMETHODCALLTYPE get_ShowSim(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE put_ShowSim(VARIANT_BOOL RHS) override;
  HRESULT STDMETHODCALLTYPE setupAPin(LONG* ArrayNumber, BSTR* PinName, LONG* PortAorB,
                                      VARIANT_BOOL* MustUseThatPort, LONG* SamePortAsPinX,
                                      LONG* PinNum, VARIANT_BOOL* MustUseThatPin,
                                      LONG* PinDirection, VARIANT_BOOL* PinValue) override;

private:
  PwmObject();
  ~PwmObject();
  PwmObject(const PwmObject&) = delete;
  PwmObject& operator=(const PwmObject&) = delete;

  // _PWM's members through the component's public interface.
  HRESULT getProperty(const char* name, zv::Variant& value);
  HRESULT putProperty(const char* name, zv::Variant value);
  HRESULT callMethod(const char* name, std::vector<zv::Variant>& args, zv::Variant* result);
  template <class T, class Convert> HRESULT getAs(const char* name, T* out, Convert convert);

  struct Destroy {
    void operator()(zv::ComponentObject* c) const;
  };

  ULONG references_ = 1;
  std::unique_ptr<zv::ComponentObject, Destroy> component_;
  SiteMessageBoxes boxes_;
  V4Face v4_{*this};
  OleControl control_{*this}; // the OLE control's faces (com/control/)
};

} // namespace zvcom
