#include <afxwin.h>

#include <gtest/gtest.h>

#include "dll/TestDll.h"

namespace
{

// Calls a function that throws, and tells the class of what it threw.
template<class Function>
const CRuntimeClass* ThrownBy(Function function)
{
    try
    {
        function();
        return nullptr;
    }
    catch (CException* pException)
    {
        const CRuntimeClass* const pClass = pException->GetRuntimeClass();
        pException->Delete();
        return pClass;
    }
}

class CCountedException : public CException
{
public:
    CCountedException(BOOL bAutoDelete, int& nDestroyed) : CException(bAutoDelete), m_nDestroyed(nDestroyed)
    {
    }
    ~CCountedException() override { ++m_nDestroyed; }

private:
    int& m_nDestroyed;
};

TEST(ExceptionTest, EachFunctionThrowsItsClass)
{
    EXPECT_EQ(RUNTIME_CLASS(CMemoryException), ThrownBy(AfxThrowMemoryException));
    EXPECT_EQ(RUNTIME_CLASS(CNotSupportedException), ThrownBy(AfxThrowNotSupportedException));
    EXPECT_EQ(RUNTIME_CLASS(CResourceException), ThrownBy(AfxThrowResourceException));
    EXPECT_EQ(RUNTIME_CLASS(CUserException), ThrownBy(AfxThrowUserException));
    EXPECT_EQ(RUNTIME_CLASS(CInvalidArgException), ThrownBy(AfxThrowInvalidArgException));
}

TEST(ExceptionTest, CrossesTheBorderOfADll)
{
    EXPECT_EQ(RUNTIME_CLASS(CResourceException), ThrownBy(testdll::ThrowResourceException));
}

TEST(ExceptionTest, DeleteEndsWhatWasMadeWithNew)
{
    int nDestroyed = 0;
    CException* const pException = new CCountedException(TRUE, nDestroyed);
    pException->Delete();
    EXPECT_EQ(1, nDestroyed);
}

TEST(ExceptionTest, DeleteLeavesWhatWasNotMadeWithNew)
{
    int nDestroyed = 0;
    CCountedException exception(FALSE, nDestroyed);
    exception.Delete();
    EXPECT_EQ(0, nDestroyed);
}

TEST(ExceptionTest, TellsItsMessageCutToTheBuffer)
{
    TCHAR message[6] = {};
    UINT nHelp = 1;
    EXPECT_TRUE(CMemoryException().GetErrorMessage(message, 6, &nHelp));
    EXPECT_STREQ(L"There", message);
    EXPECT_EQ(0u, nHelp);
}

TEST(ExceptionTest, AUserExceptionHasNoMessage)
{
    TCHAR message[6] = L"kept";
    EXPECT_FALSE(CUserException().GetErrorMessage(message, 6));
    EXPECT_STREQ(L"", message);
}

} // namespace
