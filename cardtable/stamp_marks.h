// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class CObject;

/// Marks every polygon of an object for stamping, and gives each the mark it had at the end of the scope.
class StampMarks
{
public:
    explicit StampMarks(CObject& object);
    ~StampMarks();
    StampMarks(const StampMarks&) = delete;
    StampMarks& operator=(const StampMarks&) = delete;

private:
    CObject& m_object;
    std::vector<long> m_marks;
};
