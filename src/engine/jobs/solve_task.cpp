#include "engine/jobs/solve_task.h"

#include "engine/threads/context_pool.h"

namespace tarnwick {

TSolveTask::TSolveTask() = default;
TSolveTask::~TSolveTask() = default;

}  // namespace tarnwick
