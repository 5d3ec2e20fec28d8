// Shared helpers of the test programs live beside this file.
