#include "CoreTestApp.h"

#include <string>
#include <vector>

namespace {

class LoggedObject : public VyObject {
    VY_OBJECT(LoggedObject, VyObject)
public:
    LoggedObject(const char* name, VyObject* parent, std::vector<std::string>* log)
        : VyObject(parent)
        , m_log(log) {
        setObjectName(name);
    }
    ~LoggedObject() override {
        m_log->push_back(std::string("~") + objectName().c_str() +
                         (parent() ? " parent" : " noparent"));
    }
    void onDestroyed(VyObject* sender) {
        m_log->push_back(std::string("destroyed ") + sender->objectName().c_str() +
                         " children=" + std::to_string(sender->children().size()) +
                         (sender->parent() ? " parent" : " noparent"));
    }

private:
    std::vector<std::string>* m_log;
};

class DerivedObject : public LoggedObject {
    VY_OBJECT(DerivedObject, LoggedObject)
public:
    using LoggedObject::LoggedObject;
};

} // namespace

using ObjectTree = CoreAppTest;

TEST_F(ObjectTree, ChildrenDieFirstWithoutParentThenDestroyedFires) {
    std::vector<std::string> log;
    auto* root = new LoggedObject("root", nullptr, &log);
    auto* a = new LoggedObject("a", root, &log);
    new LoggedObject("b", root, &log);
    new LoggedObject("a1", a, &log);
    LoggedObject watcher("watcher", nullptr, &log);
    ASSERT_TRUE(
        VyObject::connect(root, &root->destroyed, &watcher, VY_SLOT(LoggedObject, onDestroyed)));
    delete root;

    // The root's own destructor body runs first; then VyObject's: children in adoption
    // order, each already orphaned, and only then the root's destroyed signal.
    std::vector<std::string> expected = {"~root noparent", "~a noparent", "~a1 noparent",
                                         "~b noparent", "destroyed root children=0 noparent"};
    EXPECT_EQ(log, expected);
    EXPECT_EQ(VyObject::receivers(&watcher, &watcher.destroyed), 0);
}

TEST_F(ObjectTree, ReparentingMovesTheChildAndDeletingAChildUnlinksIt) {
    VyObject first;
    VyObject second;
    auto* child = new VyObject(&first);
    child->setParent(&second);
    EXPECT_TRUE(first.children().isEmpty());
    ASSERT_EQ(second.children().size(), 1);
    delete child;
    EXPECT_TRUE(second.children().isEmpty());
}

TEST_F(ObjectTree, ClassNameAndInheritsWalkTheChain) {
    std::vector<std::string> log;
    DerivedObject d("d", nullptr, &log);
    VyObject* base = &d;
    EXPECT_EQ(base->className(), "DerivedObject");
    EXPECT_TRUE(base->inherits("DerivedObject"));
    EXPECT_TRUE(base->inherits("LoggedObject"));
    EXPECT_TRUE(base->inherits("VyObject"));
    EXPECT_FALSE(base->inherits("VyWidget"));
    EXPECT_FALSE(base->inherits("Derived"));
    EXPECT_TRUE(app()->inherits("VyApplication"));
}
