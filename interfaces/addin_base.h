// A start for objects that implement the add-in's interface: every operation answers "not implemented" until
// a derived class says otherwise, and a call at a reserved place is told to `reserved`.
#pragma once

#include "TarnwellAddIn.h"
#include "interfaces/com.h"

namespace com {

class AddInBase : public IOlAddIn {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE SetDefaultKnowledgebase(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetLogging(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE NotifyKbAdded(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE NotifyKbRemoved(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE NotifyKbRenamed(BSTR, BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE NotifyKbRebuild(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE NotifyKbUpdate(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsProcessing(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsAutoUpdateRunning(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SendMail(BSTR, BSTR, BSTR, BSTR, BSTR, long, VARIANT_BOOL) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetFindShortcut(long) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsSearching(VARIANT_BOOL*) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE Reserved1() override { return reserved(1); }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return reserved(2); }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return reserved(3); }
    HRESULT STDMETHODCALLTYPE Reserved4() override { return reserved(4); }
    HRESULT STDMETHODCALLTYPE Reserved5() override { return reserved(5); }
    HRESULT STDMETHODCALLTYPE Reserved7() override { return reserved(7); }
    HRESULT STDMETHODCALLTYPE Reserved8() override { return reserved(8); }
    HRESULT STDMETHODCALLTYPE Reserved9() override { return reserved(9); }
    HRESULT STDMETHODCALLTYPE Reserved11() override { return reserved(11); }
    HRESULT STDMETHODCALLTYPE Reserved17() override { return reserved(17); }
    HRESULT STDMETHODCALLTYPE Reserved18() override { return reserved(18); }
    HRESULT STDMETHODCALLTYPE Reserved19() override { return reserved(19); }
    HRESULT STDMETHODCALLTYPE Reserved20() override { return reserved(20); }
    HRESULT STDMETHODCALLTYPE Reserved22() override { return reserved(22); }
    HRESULT STDMETHODCALLTYPE Reserved24() override { return reserved(24); }
    HRESULT STDMETHODCALLTYPE Reserved25() override { return reserved(25); }
    HRESULT STDMETHODCALLTYPE Reserved26() override { return reserved(26); }
    HRESULT STDMETHODCALLTYPE Reserved27() override { return reserved(27); }
    HRESULT STDMETHODCALLTYPE Reserved28() override { return reserved(28); }
    HRESULT STDMETHODCALLTYPE Reserved29() override { return reserved(29); }
    HRESULT STDMETHODCALLTYPE Reserved30() override { return reserved(30); }
    HRESULT STDMETHODCALLTYPE Reserved31() override { return reserved(31); }
    HRESULT STDMETHODCALLTYPE Reserved32() override { return reserved(32); }
    HRESULT STDMETHODCALLTYPE Reserved34() override { return reserved(34); }
    HRESULT STDMETHODCALLTYPE Reserved35() override { return reserved(35); }
    HRESULT STDMETHODCALLTYPE Reserved36() override { return reserved(36); }
    HRESULT STDMETHODCALLTYPE Reserved37() override { return reserved(37); }
    HRESULT STDMETHODCALLTYPE Reserved38() override { return reserved(38); }
    HRESULT STDMETHODCALLTYPE Reserved40() override { return reserved(40); }
    HRESULT STDMETHODCALLTYPE Reserved41() override { return reserved(41); }
    HRESULT STDMETHODCALLTYPE Reserved42() override { return reserved(42); }
    HRESULT STDMETHODCALLTYPE Reserved43() override { return reserved(43); }
    HRESULT STDMETHODCALLTYPE Reserved44() override { return reserved(44); }
    HRESULT STDMETHODCALLTYPE Reserved45() override { return reserved(45); }
    HRESULT STDMETHODCALLTYPE Reserved46() override { return reserved(46); }
    HRESULT STDMETHODCALLTYPE Reserved47() override { return reserved(47); }

protected:
    ~AddInBase() = default;
    /// Called in place of the method at this position of the interface.
    virtual HRESULT reserved(int position) {
        static_cast<void>(position);
        return E_NOTIMPL;
    }
};

}  // namespace com
