// The checks `make test` runs over the page's own scripts: ESLint's recommended rules, and a few
// that keep the code plain, for scripts that run in the browser as ES modules.
import js from '@eslint/js';
import globals from 'globals';

export default [
  js.configs.recommended,
  {
    files: ['src/**/*.js'],
    languageOptions: {
      ecmaVersion: 2022,
      sourceType: 'module',
      globals: globals.browser,
    },
    rules: {
      eqeqeq: 'error',
      'no-var': 'error',
      'prefer-const': 'error',
      'no-shadow': 'error',
      'no-unused-vars': ['error', { args: 'after-used' }],
      curly: 'error',
    },
  },
];
