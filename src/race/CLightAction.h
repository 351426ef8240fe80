#ifndef TORNIK_RACE_CLIGHTACTION_H
#define TORNIK_RACE_CLIGHTACTION_H

/** The vocabulary of `UpdateLights(int iAction)`, for the lights on the raceway and on the screen. */
namespace CLightAction {

constexpr int AllOff = 7;
constexpr int NextRed = 8;
constexpr int Go = 9;
constexpr int AllRed = 10;

} // namespace CLightAction

#endif
