#pragma once

namespace platform
{

/// Lets the copies of the program that one user starts in one session find each other, by a named event that
/// the first one holds. The system takes it back when that copy ends, however it ends.
class SingleInstance
{
public:
    SingleInstance() = default;
    SingleInstance(const SingleInstance &) = delete;
    SingleInstance &operator=(const SingleInstance &) = delete;
    ~SingleInstance();

    /// Takes the name unless another copy has it. @return whether one has. Where there can be no event, every
    /// copy is alone.
    bool isOtherRunning();

    /// Asks the copy that has the name to come to the front, and lets it.
    static void raiseOther();

    /// @return true once after another copy asked for that.
    bool takeRaiseRequest();

private:
    void *event_ = nullptr;
};

} // namespace platform
