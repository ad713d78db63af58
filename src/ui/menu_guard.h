#pragma once

// The rule that most menu items need a selected competition.
enum class Guard_Outcome {
    Open_Target,    // a competition is selected
    Create_First,   // none exists: "You are required to create a new competition first!"
    Select_First,   // some exist: "You are required to select an existing competition first!"
};

// Reads Current_Competition_Id and, when none is selected, counts the
// competitions on a fresh connection.
Guard_Outcome Competition_Guard();
