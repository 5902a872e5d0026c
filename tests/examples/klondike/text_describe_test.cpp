// SPDX-License-Identifier: MIT
#include "examples/klondike/text/describe.h"

#include <gtest/gtest.h>

TEST(KlondikeDescribe, ShowsTheDealWithoutHiddenCards)
{
    const std::string text = klondike::Describe(klondike::Game(1, {}));
    EXPECT_EQ(text, "deal 1  score 0\nstock: 24 cards\nwaste:\nf1:\nf2:\nf3:\nf4:\n"
                    "t1: 7s\nt2: ## 4c\nt3: ## ## Qh\nt4: ## ## ## 5c\nt5: ## ## ## ## 4s\n"
                    "t6: ## ## ## ## ## 10d\nt7: ## ## ## ## ## ## 10s\n");
}
