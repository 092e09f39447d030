-- Salaries on Green Flags' roster, car 48 has no group (Null, as a car saved without one), car 11
-- is of Group B and the dropped car 24 of Group A.
UPDATE cars SET group_nmbr = NULL, salary = 1250.5 WHERE car_txt = '48';
UPDATE cars SET group_nmbr = 2, salary = 2000 WHERE car_txt = '11';
UPDATE team_car SET locked_salary = 1800 WHERE car_nmbr IN (SELECT car_nmbr FROM cars WHERE car_txt = '11');
UPDATE team_car SET locked_salary = 1100.25 WHERE car_nmbr IN (SELECT car_nmbr FROM cars WHERE car_txt = '48');
UPDATE team_car SET locked_salary = 700 WHERE car_nmbr IN (SELECT car_nmbr FROM cars WHERE car_txt = '24');
