#ifndef ORVIKCORE_TESTS_COUNTEDOP_H
#define ORVIKCORE_TESTS_COUNTEDOP_H

#include "OrvikCore/IViewOp.h"

#include <string>

/// An operation of any type that counts how many of its kind are alive.
class CountedOp : public OrvikCore::IViewOp
{
public:
    /// @param living  counted up now and down at the end; not owned.
    CountedOp(int& living, OrvikCore::ViewOpType type, std::string name,
              OrvikCore::IViewOpState state = OrvikCore::IViewOpState::Processing)
        : IViewOp(state), m_living(living), m_type(type), m_name(std::move(name))
    {
        ++m_living;
    }
    ~CountedOp() override { --m_living; }
    CountedOp(const CountedOp&) = delete;
    CountedOp& operator=(const CountedOp&) = delete;

    OrvikCore::ViewOpType Type() const override { return m_type; }
    std::string ToString() const override { return m_name; }

private:
    int& m_living;
    OrvikCore::ViewOpType m_type;
    std::string m_name;
};

#endif
