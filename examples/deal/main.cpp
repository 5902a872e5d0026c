// SPDX-License-Identifier: MIT
#include "examples/deal/program.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char* argv[])
{
    return deal::RunProgram(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc), DEAL_ASSETS_FOLDER,
                            std::cout, std::cerr);
}
