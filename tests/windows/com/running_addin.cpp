#include "tests/windows/com/running_addin.h"

#include <gtest/gtest.h>

namespace tests {

RunningAddIn::RunningAddIn() {
    offer.classInformation = false;
    offer.typeInformation = false;
    registerAddIn();
    EXPECT_EQ(RegisterActiveObject(static_cast<IOlAddIn*>(this), __uuidof(OlAddIn), ACTIVEOBJECT_STRONG,
                                   &registration_),
              S_OK);
}

RunningAddIn::~RunningAddIn() {
    RevokeActiveObject(registration_, nullptr);
    EXPECT_EQ(references(), 1u) << "the control keeps references to the add-in";
}

HRESULT RunningAddIn::called(const std::string& operation, const std::string&) {
    if (during) during(operation);
    return S_OK;
}

}  // namespace tests
