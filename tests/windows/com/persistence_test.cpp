// The stored properties in streams and property bags.
#include <climits>
#include <random>

#include "tests/windows/com/control_test.h"
#include "tests/windows/com/fake_bag.h"
#include "tests/windows/stage/variants.h"

namespace tests {
namespace {

const std::vector<std::wstring> NAMES{L"BackColor", L"ForeColor",   L"Enabled", L"Font",
                                      L"BackStyle", L"BorderStyle", L"Loading"};

com::Ptr<IStream> newStream() {
    com::Ptr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.out());
    return stream;
}

com::Ptr<IStream> streamOf(const std::vector<BYTE>& bytes) {
    const auto stream = newStream();
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    return stream;
}

std::vector<BYTE> bytesOf(const com::Ptr<IStream>& stream) {
    STATSTG state{};
    stream->Stat(&state, STATFLAG_NONAME);
    std::vector<BYTE> bytes(static_cast<std::size_t>(state.cbSize.QuadPart));
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    return bytes;
}

/// The attributes as the system has made them: it rounds sizes and substitutes names.
std::wstring describe(const com::Ptr<IFont>& font) {
    com::Bstr name;
    CY size{};
    SHORT weight = 0;
    BOOL italic = FALSE;
    font->get_Name(name.out());
    font->get_Size(&size);
    font->get_Weight(&weight);
    font->get_Italic(&italic);
    return com::toText(name.get()) + L" " + std::to_wstring(size.int64) + L" " + std::to_wstring(weight) +
           (italic ? L" italic" : L"");
}

/// All seven, to be compared before and after.
struct Values {
    OLE_COLOR back = 0;
    OLE_COLOR fore = 0;
    VARIANT_BOOL enabled = 0;
    short backStyle = 0;
    short borderStyle = 0;
    VARIANT_BOOL loading = 0;
    bool operator==(const Values&) const = default;
};

class Persistence : public ControlTest {
protected:
    Persistence() { create(); }

    [[nodiscard]] com::Ptr<IctlPPE> page() const { return as<IctlPPE>(); }
    [[nodiscard]] com::Ptr<IPersistStreamInit> stream() const { return as<IPersistStreamInit>(); }
    [[nodiscard]] com::Ptr<IPersistPropertyBag> bag() const { return as<IPersistPropertyBag>(); }

    [[nodiscard]] Values values() const {
        Values now;
        page()->get_BackColor(&now.back);
        page()->get_ForeColor(&now.fore);
        page()->get_Enabled(&now.enabled);
        page()->get_BackStyle(&now.backStyle);
        page()->get_BorderStyle(&now.borderStyle);
        page()->get_Loading(&now.loading);
        return now;
    }
    void set(const Values& wanted) const {
        EXPECT_EQ(page()->put_BackColor(wanted.back), S_OK);
        EXPECT_EQ(page()->put_ForeColor(wanted.fore), S_OK);
        EXPECT_EQ(page()->put_Enabled(wanted.enabled), S_OK);
        EXPECT_EQ(page()->put_BackStyle(wanted.backStyle), S_OK);
        EXPECT_EQ(page()->put_BorderStyle(wanted.borderStyle), S_OK);
        EXPECT_EQ(page()->put_Loading(wanted.loading), S_OK);
    }
    [[nodiscard]] com::Ptr<IFont> font() const {
        com::Ptr<IFontDisp> found;
        EXPECT_EQ(page()->get_Font(found.out()), S_OK);
        return found.as<IFont>();
    }
    /// What the control writes in a stream.
    [[nodiscard]] std::vector<BYTE> saved() const {
        const auto kept = newStream();
        EXPECT_EQ(stream()->Save(kept.get(), TRUE), S_OK);
        return bytesOf(kept);
    }
    HRESULT load(const std::vector<BYTE>& bytes) const { return stream()->Load(streamOf(bytes).get()); }
    void offerFont() {
        put(container.ambients[DISPID_AMBIENT_FONT], dispatch(makeFont(L"Courier New", 13).detach()));
    }
    void renew() {
        end();
        create();
    }
};

const Values EXTREMES{0xFFFFFFFF, 0x80000005, VARIANT_TRUE, SHRT_MIN, SHRT_MAX, VARIANT_TRUE};

// A new instance has all of them 0 or false, and is usable all the same.
TEST_F(Persistence, NewInstanceHasNothingSetAndIsUsable) {
    EXPECT_EQ(values(), Values{});
    EXPECT_FALSE(font());
    enterSite();
    container.acceptAnything();
    ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_TRUE(IsWindowEnabled(frame()));
    EXPECT_TRUE(IsWindowVisible(ControlTest::page()));
}

// Statement 14: initialising succeeds and leaves nothing to save; after a load it is too late.
TEST_F(Persistence, InitialisingLeavesNothingToSave) {
    EXPECT_EQ(stream()->InitNew(), S_OK);
    EXPECT_EQ(bag()->InitNew(), S_OK);
    EXPECT_EQ(stream()->IsDirty(), S_FALSE);
}

TEST_F(Persistence, InitialisingAfterALoadIsUnexpected) {
    ASSERT_EQ(load(saved()), S_OK);
    EXPECT_EQ(stream()->InitNew(), E_UNEXPECTED);
}

// Statement 15: a changed property is to be saved, until it has been with the clearing of the mark.
TEST_F(Persistence, AChangeIsDirtyUntilItIsSaved) {
    page()->put_BackColor(7);
    EXPECT_EQ(stream()->IsDirty(), S_OK);
    EXPECT_EQ(stream()->Save(newStream().get(), FALSE), S_OK);
    EXPECT_EQ(stream()->IsDirty(), S_OK);
    EXPECT_EQ(stream()->Save(newStream().get(), TRUE), S_OK);
    EXPECT_EQ(stream()->IsDirty(), S_FALSE);
    page()->put_BackColor(7);
    EXPECT_EQ(stream()->IsDirty(), S_FALSE);
}

// Statement 16: both ways of keeping bring every property back.
TEST_F(Persistence, AStreamBringsEveryPropertyBack) {
    set(EXTREMES);
    page()->putref_Font(makeFont(L"Tahoma", 11, TRUE).get());
    const auto fontBefore = describe(font());
    const auto bytes = saved();
    ULARGE_INTEGER size{};
    ASSERT_EQ(stream()->GetSizeMax(&size), S_OK);
    EXPECT_EQ(size.QuadPart, bytes.size());

    renew();
    ASSERT_EQ(load(bytes), S_OK);
    EXPECT_EQ(values(), EXTREMES);
    ASSERT_TRUE(font());
    EXPECT_EQ(describe(font()), fontBefore);
    EXPECT_EQ(stream()->IsDirty(), S_FALSE);
}

TEST_F(Persistence, ABagBringsEveryPropertyBack) {
    FakeBag kept;
    set(EXTREMES);
    page()->putref_Font(makeFont(L"Arial", 14).get());
    ASSERT_EQ(bag()->Save(&kept, TRUE, TRUE), S_OK);
    renew();
    ASSERT_EQ(bag()->Load(&kept, nullptr), S_OK);
    EXPECT_EQ(values(), EXTREMES);
    ASSERT_TRUE(font());
    EXPECT_EQ(font()->IsEqual(makeFont(L"Arial", 14).as<IFont>().get()), S_OK);
}

// The one text that is stored is the font's name; the stream holds names of any length and script.
TEST_F(Persistence, AStreamKeepsTheFontsName) {
    for (const std::wstring& name :
         {std::wstring(L"Tahoma"), std::wstring(L"\u30E1\u30A4\u30EA\u30AA \U0001F58B"),
          std::wstring(65536, L'F')}) {
        page()->putref_Font(makeFont(name).get());
        com::Bstr before;
        font()->get_Name(before.out());
        ASSERT_EQ(load(saved()), S_OK);
        com::Bstr after;
        font()->get_Name(after.out());
        EXPECT_EQ(com::toText(after.get()), com::toText(before.get()));
    }
}

// Statement 17: missing values keep the defaults; wrong ones are reported, once each.
TEST_F(Persistence, AnEmptyBagGivesTheDefaults) {
    const FakeErrorLog log;
    FakeBag empty;
    set(EXTREMES);
    EXPECT_EQ(bag()->Load(&empty, const_cast<FakeErrorLog*>(&log)), S_OK);
    EXPECT_EQ(values(), Values{});
    EXPECT_TRUE(log.names.empty());
    EXPECT_EQ(empty.references(), 1u);
}

TEST_F(Persistence, ABagWithWrongTypesGivesTheDefaultsAndReportsEach) {
    FakeBag wrong;
    for (const std::wstring& name : NAMES) put(wrong.values[name], text(SysAllocString(L"nonsense")));
    FakeErrorLog log;
    EXPECT_EQ(bag()->Load(&wrong, &log), S_OK);
    EXPECT_EQ(log.names, NAMES);
    EXPECT_EQ(values(), Values{});
    EXPECT_FALSE(font());
    EXPECT_EQ(bag()->Load(&wrong, nullptr), S_OK);
}

TEST_F(Persistence, ABagsValuesAreConverted) {
    FakeBag texts;
    put(texts.values[L"BackColor"], text(SysAllocString(L"255")));
    put(texts.values[L"Enabled"], integer(1));
    put(texts.values[L"BackStyle"], integer(70000));  // does not fit
    FakeErrorLog log;
    ASSERT_EQ(bag()->Load(&texts, &log), S_OK);
    EXPECT_EQ(values(), (Values{255, 0, VARIANT_TRUE, 0, 0, 0}));
    EXPECT_EQ(log.names, std::vector<std::wstring>{L"BackStyle"});
}

// Statement 18: what is written, by stable names.
TEST_F(Persistence, ABagGetsTheChangedPropertiesOrAll) {
    page()->put_ForeColor(1);
    page()->put_Loading(VARIANT_TRUE);
    FakeBag changed;
    ASSERT_EQ(bag()->Save(&changed, FALSE, FALSE), S_OK);
    EXPECT_EQ(changed.written, (std::vector<std::wstring>{L"ForeColor", L"Loading"}));
    EXPECT_EQ(stream()->IsDirty(), S_OK);
    FakeBag all;
    ASSERT_EQ(bag()->Save(&all, TRUE, TRUE), S_OK);
    EXPECT_EQ(all.written, NAMES);
    EXPECT_EQ(stream()->IsDirty(), S_FALSE);
}

// Statement 19: no stream, however broken, harms the object.
TEST_F(Persistence, TruncatedStreamsAreRefusedAndChangeNothing) {
    set(EXTREMES);
    page()->putref_Font(makeFont(L"Tahoma").get());
    const auto bytes = saved();
    set(Values{1, 2, 0, 3, 4, 0});
    const Values before = values();
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_TRUE(FAILED(load({bytes.begin(), bytes.begin() + length})));
        ASSERT_EQ(values(), before);
    }
}

TEST_F(Persistence, StreamsOfAnotherKindOrANewerVersionAreRefused) {
    for (const std::size_t position : {0u, 4u}) {
        auto bytes = saved();
        ++bytes[position];
        EXPECT_TRUE(FAILED(load(bytes)));
    }
}

TEST_F(Persistence, TenThousandBrokenStreamsDoNoHarm) {
    page()->putref_Font(makeFont(L"Tahoma").get());
    const auto good = saved();
    std::mt19937 random(20260101);
    const auto persist = stream();
    const auto reused = newStream();
    for (int round = 0; round < 10000; ++round) {
        auto bytes = good;
        if (round % 2 == 0) {
            for (int change = 0; change < 3; ++change)
                bytes[random() % bytes.size()] = static_cast<BYTE>(random());
        } else {
            bytes.resize(random() % 200);
            for (BYTE& byte : bytes) byte = static_cast<BYTE>(random());
        }
        reused->SetSize({});
        reused->Seek({}, STREAM_SEEK_SET, nullptr);
        reused->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
        reused->Seek({}, STREAM_SEEK_SET, nullptr);
        const Values before = values();
        if (FAILED(persist->Load(reused.get()))) {
            ASSERT_EQ(values(), before);
        }
    }
    EXPECT_EQ(load(good), S_OK);
    EXPECT_EQ(values(), Values{});
}

// The container's font is a new instance's, whether it comes before or after the initialising.
TEST_F(Persistence, NewInstanceTakesACopyOfTheContainersFont) {
    offerFont();
    enterSite();
    ASSERT_EQ(stream()->InitNew(), S_OK);
    ASSERT_TRUE(font());
    EXPECT_EQ(font()->IsEqual(makeFont(L"Courier New", 13).as<IFont>().get()), S_OK);
    EXPECT_NE(static_cast<IUnknown*>(font().get()),
              static_cast<IUnknown*>(container.ambients[DISPID_AMBIENT_FONT].pdispVal));

    renew();
    ASSERT_EQ(stream()->InitNew(), S_OK);
    EXPECT_FALSE(font());
    enterSite();
    EXPECT_TRUE(font());
    EXPECT_EQ(stream()->IsDirty(), S_FALSE);
}

TEST_F(Persistence, ALoadedInstanceKeepsItsOwnFont) {
    FakeBag kept;
    ASSERT_EQ(bag()->Load(&kept, nullptr), S_OK);
    offerFont();
    enterSite();
    EXPECT_FALSE(font());
}

}  // namespace
}  // namespace tests
