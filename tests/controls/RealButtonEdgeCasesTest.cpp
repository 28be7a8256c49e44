#include "foundation/FrameworkWindow.h"

#include <vxdpi/Controls.h>

#include <gtest/gtest.h>

namespace
{
// Proxies are made inside the library only. What a real button calls of one it has from CButton.
CButtonProxy* AsProxy(CButton& button)
{
    return reinterpret_cast<CButtonProxy*>(&button);
}

struct ButtonPair
{
    ButtonPair()
    {
        real.Create(L"OK", WS_CHILD, CRect(0, 0, 75, 23), parent.Object(), IDOK);
        standIn.Create(L"OK", WS_CHILD, CRect(80, 0, 155, 23), parent.Object(), 2000);
    }

    FrameworkWindow parent;
    CRealButton real;
    CButton standIn;
};
}

TEST(RealButtonEdgeCases, NamingAProxyAnswersTheOneBefore)
{
    ButtonPair buttons;
    EXPECT_EQ(buttons.real.SetProxyButton(AsProxy(buttons.standIn)), nullptr);
    EXPECT_EQ(buttons.real.SetProxyButton(nullptr), AsProxy(buttons.standIn));
    EXPECT_EQ(buttons.real.SetProxyButton(nullptr), nullptr);
}

TEST(RealButtonEdgeCases, DisablingActsOnTheProxyAlone)
{
    ButtonPair buttons;
    buttons.real.SetProxyButton(AsProxy(buttons.standIn));
    EXPECT_FALSE(buttons.real.EnableWindow(FALSE));
    EXPECT_TRUE(buttons.real.IsWindowEnabled());
    EXPECT_FALSE(buttons.standIn.IsWindowEnabled());
    EXPECT_TRUE(buttons.real.EnableWindow(TRUE));
    EXPECT_TRUE(buttons.standIn.IsWindowEnabled());
}

TEST(RealButtonEdgeCases, DisablingActsOnTheButtonItselfWithoutAProxy)
{
    ButtonPair buttons;
    EXPECT_FALSE(buttons.real.EnableWindow(FALSE));
    EXPECT_FALSE(buttons.real.IsWindowEnabled());
    EXPECT_TRUE(buttons.standIn.IsWindowEnabled());
    EXPECT_TRUE(buttons.real.EnableWindow());
    EXPECT_TRUE(buttons.real.IsWindowEnabled());
}
