// MFC exceptions are thrown as pointers that the catcher deletes.
#pragma once

#include <afx.h>
#include <gtest/gtest.h>

template <class TException, class F>
void ExpectThrown(F f)
{
    try
    {
        f();
        ADD_FAILURE() << "no exception";
    }
    catch (TException* e)
    {
        e->Delete();
    }
}
