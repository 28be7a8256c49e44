#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>

#include "dll/TestDll.h"

class CPlainObject : public CObject
{
    DECLARE_DYNAMIC(CPlainObject)
};

class CCreatableObject : public CPlainObject
{
    DECLARE_DYNCREATE(CCreatableObject)

protected:
    CCreatableObject() = default;
};

class CHungryObject : public CObject
{
    DECLARE_DYNCREATE(CHungryObject)

public:
    CHungryObject() { AfxThrowMemoryException(); }
};

IMPLEMENT_DYNAMIC(CPlainObject, CObject)
IMPLEMENT_DYNCREATE(CCreatableObject, CPlainObject)
IMPLEMENT_DYNCREATE(CHungryObject, CObject)

namespace
{

using ObjectPtr = std::unique_ptr<CObject>;

TEST(RuntimeClassTest, TellsNameAndSize)
{
    EXPECT_STREQ("CCreatableObject", RUNTIME_CLASS(CCreatableObject)->m_lpszClassName);
    EXPECT_EQ(static_cast<int>(sizeof(CCreatableObject)), RUNTIME_CLASS(CCreatableObject)->m_nObjectSize);
}

TEST(RuntimeClassTest, AnObjectNamesItsMostDerivedClass)
{
    const ObjectPtr pObject(RUNTIME_CLASS(CCreatableObject)->CreateObject());
    EXPECT_EQ(RUNTIME_CLASS(CCreatableObject), pObject->GetRuntimeClass());
}

TEST(RuntimeClassTest, AnObjectIsOfItsOwnClassAndOfEachBase)
{
    const ObjectPtr pObject(RUNTIME_CLASS(CCreatableObject)->CreateObject());
    EXPECT_TRUE(pObject->IsKindOf(RUNTIME_CLASS(CCreatableObject)));
    EXPECT_TRUE(pObject->IsKindOf(RUNTIME_CLASS(CPlainObject)));
    EXPECT_TRUE(pObject->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(pObject->IsKindOf(RUNTIME_CLASS(CHungryObject)));
}

TEST(RuntimeClassTest, ABaseIsNotDerivedFromItsDerivedClass)
{
    EXPECT_TRUE(RUNTIME_CLASS(CCreatableObject)->IsDerivedFrom(RUNTIME_CLASS(CPlainObject)));
    EXPECT_FALSE(RUNTIME_CLASS(CPlainObject)->IsDerivedFrom(RUNTIME_CLASS(CCreatableObject)));
}

TEST(RuntimeClassTest, BasesReachIntoTheFramework)
{
    EXPECT_TRUE(RUNTIME_CLASS(CWinApp)->IsDerivedFrom(RUNTIME_CLASS(CWinThread)));
    EXPECT_TRUE(RUNTIME_CLASS(CFrameWnd)->IsDerivedFrom(RUNTIME_CLASS(CWnd)));
}

TEST(RuntimeClassTest, IsFoundByNarrowAndWideName)
{
    EXPECT_EQ(RUNTIME_CLASS(CPlainObject), CRuntimeClass::FromName("CPlainObject"));
    EXPECT_EQ(RUNTIME_CLASS(CPlainObject), CRuntimeClass::FromName(L"CPlainObject"));
    EXPECT_EQ(RUNTIME_CLASS(CFrameWnd), CRuntimeClass::FromName("CFrameWnd"));
}

TEST(RuntimeClassTest, AnUnknownNameIsNotFound)
{
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("CNoSuchObject"));
    EXPECT_EQ(nullptr, CRuntimeClass::CreateObject("CNoSuchObject"));
    EXPECT_EQ(nullptr, CRuntimeClass::CreateObject(L"cplainobject"));
}

TEST(RuntimeClassTest, CreatesAnObjectByName)
{
    const ObjectPtr pNarrow(CRuntimeClass::CreateObject("CCreatableObject"));
    const ObjectPtr pWide(CRuntimeClass::CreateObject(L"CCreatableObject"));
    EXPECT_TRUE(pNarrow->IsKindOf(RUNTIME_CLASS(CCreatableObject)));
    EXPECT_TRUE(pWide->IsKindOf(RUNTIME_CLASS(CCreatableObject)));
}

TEST(RuntimeClassTest, CreatesNothingWithoutDynamicCreation)
{
    EXPECT_EQ(nullptr, RUNTIME_CLASS(CPlainObject)->CreateObject());
}

TEST(RuntimeClassTest, CreatesNothingWithoutMemory)
{
    EXPECT_EQ(nullptr, RUNTIME_CLASS(CHungryObject)->CreateObject());
}

TEST(RuntimeClassTest, ProgramAndDllCreateEachOthersClasses)
{
    const ObjectPtr pOfDll(CRuntimeClass::CreateObject("CDllObject"));
    ASSERT_NE(nullptr, DYNAMIC_DOWNCAST(CDllObject, pOfDll.get()));
    EXPECT_EQ(42, STATIC_DOWNCAST(CDllObject, pOfDll.get())->m_nAnswer);
    const ObjectPtr pOfProgram(testdll::CreateByName("CCreatableObject"));
    EXPECT_TRUE(pOfProgram->IsKindOf(RUNTIME_CLASS(CCreatableObject)));
}

TEST(RuntimeClassTest, ADynamicDowncastRefusesOtherClassesAndNull)
{
    const ObjectPtr pObject(RUNTIME_CLASS(CCreatableObject)->CreateObject());
    EXPECT_EQ(pObject.get(), DYNAMIC_DOWNCAST(CPlainObject, pObject.get()));
    EXPECT_EQ(nullptr, DYNAMIC_DOWNCAST(CHungryObject, pObject.get()));
    EXPECT_EQ(nullptr, DYNAMIC_DOWNCAST(CPlainObject, static_cast<CObject*>(nullptr)));
}

} // namespace
