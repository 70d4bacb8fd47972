// Who the control is: identity, type information, late binding, class information.
#include <gmock/gmock.h>

#include "tests/windows/com/control_test.h"
#include "tests/windows/stage/variants.h"

namespace tests {
namespace {

const IID INTERFACES[] = {
    IID_IUnknown,           IID_IDispatch,           __uuidof(IctlPPE),
    __uuidof(PropertyPage), IID_IOleObject,          IID_IOleControl,
    IID_IOleWindow,         IID_IOleInPlaceObject,   IID_IOleInPlaceActiveObject,
    IID_IViewObject,        IID_IViewObject2,        IID_IPersist,
    IID_IPersistStreamInit, IID_IPersistPropertyBag, IID_IConnectionPointContainer,
    IID_IProvideClassInfo,  IID_ISupportErrorInfo,
};

com::Ptr<IUnknown> query(IUnknown* object, REFIID iid) {
    com::Ptr<IUnknown> found;
    EXPECT_EQ(object->QueryInterface(iid, found.outVoid()), S_OK);
    return found;
}

/// Calls a member late bound with arguments in their usual order.
HRESULT invoke(IDispatch* object, DISPID member, WORD flags, std::vector<VARIANT> arguments = {},
               VARIANT* result = nullptr, UINT* badArgument = nullptr) {
    std::reverse(arguments.begin(), arguments.end());
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    return object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, nullptr,
                          badArgument);
}

class Identity : public ControlTest {
protected:
    Identity() { create(); }
};

// Statement 8: queries are reflexive, symmetric and transitive, and lead to one identity.
TEST_F(Identity, EveryInterfaceLeadsToEveryOtherAndToOneIdentity) {
    for (const IID& first : INTERFACES) {
        const auto object = query(control.get(), first);
        EXPECT_EQ(query(object.get(), IID_IUnknown).get(), control.get());
        for (const IID& second : INTERFACES) {
            const auto other = query(object.get(), second);
            EXPECT_EQ(query(other.get(), first).get(), object.get());
        }
    }
}

TEST_F(Identity, QueryWithoutAPlaceForTheResultIsRefused) {
    for (const IID& iid : INTERFACES)
        EXPECT_EQ(query(control.get(), iid)->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(Identity, UnknownInterfacesClearTheResult) {
    void* out = &out;
    EXPECT_EQ(control->QueryInterface(IID_IStorage, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
}

// Statement 9.
TEST_F(Identity, AllNameTheSameClass) {
    CLSID named[3]{};
    EXPECT_EQ(as<IPersistStreamInit>()->GetClassID(&named[0]), S_OK);
    EXPECT_EQ(as<IPersistPropertyBag>()->GetClassID(&named[1]), S_OK);
    EXPECT_EQ(as<IOleObject>()->GetUserClassID(&named[2]), S_OK);
    EXPECT_THAT(named, testing::Each(__uuidof(::ctlPPE)));
}

// Statement 10: late binding agrees with the interface.
TEST_F(Identity, NamesHaveTheStandardNumbers) {
    struct Member {
        const wchar_t* name;
        DISPID number;
    };
    const Member members[] = {{L"BackColor", DISPID_BACKCOLOR},
                              {L"ForeColor", DISPID_FORECOLOR},
                              {L"Enabled", DISPID_ENABLED},
                              {L"Font", DISPID_FONT},
                              {L"BackStyle", DISPID_BACKSTYLE},
                              {L"BorderStyle", DISPID_BORDERSTYLE},
                              {L"Loading", 1},
                              {L"Caption", DISPID_CAPTION},
                              {L"GetPageInfo", 0x2100},
                              {L"Dirty", 0x2101},
                              {L"Apply", 0x2102}};
    DISPID found = 0;
    const auto find = [&](const wchar_t* member) {
        auto* name = const_cast<LPOLESTR>(member);
        return as<IDispatch>()->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &found);
    };
    for (const Member& member : members) {
        EXPECT_EQ(find(member.name), S_OK);
        EXPECT_EQ(found, member.number);
    }
    EXPECT_EQ(find(L"NoSuchMember"), DISP_E_UNKNOWNNAME);
}

TEST_F(Identity, LateBoundPropertiesAreThoseOfTheInterface) {
    const auto object = as<IDispatch>();
    const auto early = as<IctlPPE>();
    com::Variant read;
    EXPECT_EQ(invoke(object.get(), DISPID_BACKCOLOR, DISPATCH_PROPERTYPUT, {integer(0x00C0FFEE)}), S_OK);
    OLE_COLOR colour = 0;
    EXPECT_EQ(early->get_BackColor(&colour), S_OK);
    EXPECT_EQ(colour, 0x00C0FFEEu);
    EXPECT_EQ(early->put_Enabled(VARIANT_TRUE), S_OK);
    EXPECT_EQ(invoke(object.get(), DISPID_ENABLED, DISPATCH_PROPERTYGET, {}, &read), S_OK);
    EXPECT_EQ(read.vt, VT_BOOL);
    EXPECT_EQ(read.boolVal, VARIANT_TRUE);
    EXPECT_EQ(invoke(object.get(), 1, DISPATCH_PROPERTYPUT, {flag(true)}), S_OK);
    VARIANT_BOOL loading = VARIANT_FALSE;
    EXPECT_EQ(early->get_Loading(&loading), S_OK);
    EXPECT_EQ(loading, VARIANT_TRUE);
    EXPECT_EQ(invoke(object.get(), DISPID_BORDERSTYLE, DISPATCH_PROPERTYPUT, {integer(1)}), S_OK);
    short style = 0;
    EXPECT_EQ(early->get_BorderStyle(&style), S_OK);
    EXPECT_EQ(style, 1);
}

TEST_F(Identity, LateBoundMistakesAreToldByTheirCodes) {
    const auto object = as<IDispatch>();
    UINT bad = 99;
    const com::Bstr noNumber{L"no number"};
    EXPECT_EQ(
        invoke(object.get(), DISPID_BACKCOLOR, DISPATCH_PROPERTYPUT, {text(noNumber.get())}, nullptr, &bad),
        DISP_E_TYPEMISMATCH);
    EXPECT_EQ(bad, 0u);
    EXPECT_EQ(invoke(object.get(), 0x2102, DISPATCH_METHOD, {integer(1)}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(object.get(), 4711, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
    DISPPARAMS none{};
    EXPECT_EQ(object->Invoke(0x2102, IID_IUnknown, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(object->Invoke(0x2102, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              E_POINTER);
}

TEST_F(Identity, LateBoundPageInformationFillsItsReferences) {
    BSTR file = SysAllocString(L"old.chm");
    LONG context = 42;
    EXPECT_EQ(invoke(as<IDispatch>().get(), 0x2100, DISPATCH_METHOD,
                     {reference(VT_BSTR, &file), reference(VT_I4, &context)}),
              S_OK);
    EXPECT_EQ(SysStringLen(file), 0u);
    EXPECT_EQ(context, 0);
    SysFreeString(file);
}

TEST_F(Identity, HasOneTypeInformation) {
    for (const IID& iid : {IID_IDispatch, __uuidof(PropertyPage)}) {
        com::Ptr<IDispatch> object;
        ASSERT_EQ(control->QueryInterface(iid, object.outVoid()), S_OK);
        UINT count = 0;
        EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1u);
        com::Ptr<ITypeInfo> information;
        EXPECT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.out()), S_OK);
        EXPECT_EQ(object->GetTypeInfo(1, LOCALE_USER_DEFAULT, information.out()), DISP_E_BADINDEX);
    }
}

// Statement 11: the caption, with and without a site.
TEST_F(Identity, TellsItsCaptionBeforeAndAfterItHasASite) {
    for (IOleClientSite* site : {static_cast<IOleClientSite*>(nullptr), container.site()}) {
        as<IOleObject>()->SetClientSite(site);
        com::Variant caption;
        ASSERT_EQ(invoke(as<IDispatch>().get(), DISPID_CAPTION, DISPATCH_PROPERTYGET, {}, &caption), S_OK);
        ASSERT_EQ(caption.vt, VT_BSTR);
        EXPECT_STREQ(caption.bstrVal, L"Quillmark");
    }
}

// Statement 12: the host's interface stands beside the control's own.
TEST_F(Identity, PropertyPageAnswersByItsVirtualFunctions) {
    const auto host = as<PropertyPage>();
    ASSERT_TRUE(host);
    using Slot = HRESULT(STDMETHODCALLTYPE*)(PropertyPage*, VARIANT_BOOL*);
    // Seven entries of IUnknown and IDispatch, GetPageInfo, then Dirty.
    const auto slots = *reinterpret_cast<Slot**>(host.get());
    VARIANT_BOOL dirty = VARIANT_TRUE;
    EXPECT_EQ(slots[8](host.get(), &dirty), S_OK);
    EXPECT_EQ(dirty, VARIANT_FALSE);
}

TEST_F(Identity, PropertyPageAnswersLateBound) {
    com::Variant dirty;
    EXPECT_EQ(invoke(as<PropertyPage>().get(), 0x2101, DISPATCH_PROPERTYGET, {}, &dirty), S_OK);
    EXPECT_EQ(dirty.boolVal, VARIANT_FALSE);
    EXPECT_EQ(invoke(as<PropertyPage>().get(), 0x2102, DISPATCH_METHOD), S_OK);
}

TEST_F(Identity, PropertyPageKnowsNoStoredProperty) {
    com::Variant read;
    EXPECT_EQ(invoke(as<PropertyPage>().get(), DISPID_BACKCOLOR, DISPATCH_PROPERTYGET, {}, &read),
              DISP_E_MEMBERNOTFOUND);
}

// Statement 13, as far as it applies: the control raises no events, so it names no source interface.
TEST_F(Identity, ClassInformationIsThatOfAControl) {
    com::Ptr<ITypeInfo> information;
    ASSERT_EQ(as<IProvideClassInfo>()->GetClassInfo(information.out()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FCONTROL, 0);
    EXPECT_EQ(attributes->guid, __uuidof(::ctlPPE));
    information->ReleaseTypeAttr(attributes);
    EXPECT_FALSE(as<IProvideClassInfo2>());
}

TEST_F(Identity, ExplainsTheFailuresOfItsDualInterfacesAlone) {
    const auto information = as<ISupportErrorInfo>();
    EXPECT_EQ(information->InterfaceSupportsErrorInfo(__uuidof(IctlPPE)), S_OK);
    EXPECT_EQ(information->InterfaceSupportsErrorInfo(__uuidof(PropertyPage)), S_OK);
    EXPECT_EQ(information->InterfaceSupportsErrorInfo(IID_IOleObject), S_FALSE);
    EXPECT_EQ(as<IctlPPE>()->get_Caption(nullptr), E_POINTER);
    com::Ptr<IErrorInfo> error;
    ASSERT_EQ(GetErrorInfo(0, error.out()), S_OK);
    com::Bstr source;
    EXPECT_EQ(error->GetSource(source.out()), S_OK);
    EXPECT_STREQ(source.get(), L"VexaPPE.ctlPPE");
}

}  // namespace
}  // namespace tests
