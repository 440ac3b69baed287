#include "host/nodes/nodeTypes.h"

#include <gtest/gtest.h>
namespace host {
namespace {
TEST(NodeTypes, Register) {
    NodeTypeRegistry t;
    registerNodeTypes(t);
}
} // namespace
} // namespace host
