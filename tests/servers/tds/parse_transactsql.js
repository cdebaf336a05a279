// Parses statements as T-SQL by an independent parser: node parse_transactsql.js MODULES FILE
// FILE holds one statement a line. Prints each refused one and ends with 1 when there is any.
const fs = require('fs');
const [modules, file] = process.argv.slice(2);
const { Parser } = require(modules + '/node-sql-parser');

// The parser takes no alias behind a system function; the language does.
const known = statement => statement.replace(/@@(\w+) AS /gi, '[$1] AS ');

const statements = fs.readFileSync(file, 'utf8').split('\n').filter(line => line.trim());
const parser = new Parser();
let refused = 0;
for (const statement of statements) {
  try {
    parser.astify(known(statement), { database: 'transactsql' });
  } catch (error) {
    refused += 1;
    console.error(`refused: ${statement}\n  ${error.message.slice(0, 200)}`);
  }
}
console.log(`${statements.length} statements, ${refused} refused`);
process.exit(refused || !statements.length ? 1 : 0);
